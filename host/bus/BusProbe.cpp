#include "BusProbe.h"

#include <QDeadlineTimer>
#include <QList>

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

// A client's connection to the bus, as far as is needed to be answered.
class Greeting
{
public:
    explicit Greeting(int milliseconds) : mEnd(milliseconds) {}
    ~Greeting() { close(mSocket); }
    Greeting(const Greeting&) = delete;
    Greeting& operator=(const Greeting&) = delete;

    bool connectTo(const sockaddr_un& address, socklen_t size) const
    {
        return connect(mSocket, reinterpret_cast<const sockaddr*>(&address), size) == 0;
    }

    bool say(const QByteArray& bytes) const
    {
        return send(mSocket, bytes.constData(), static_cast<size_t>(bytes.size()), MSG_NOSIGNAL) == bytes.size();
    }

    // Whether the bus says anything, and first of all this.
    bool hears(const QByteArray& beginning) const
    {
        pollfd answer = {mSocket, POLLIN, 0};
        int ready = 0;
        do
            ready = poll(&answer, 1, static_cast<int>(mEnd.remainingTime()));
        while (ready < 0 && errno == EINTR);
        char bytes[512];
        const ssize_t count = ready > 0 ? recv(mSocket, bytes, sizeof bytes, 0) : 0;
        return count >= beginning.size() && std::memcmp(bytes, beginning.constData(), beginning.size()) == 0;
    }

private:
    const int mSocket = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    const QDeadlineTimer mEnd;
};

// A header field that is a text: aligned, its code, its type, its length, the text.
void addField(QByteArray& fields, char code, char type, const char* text)
{
    fields.append((8 - fields.size() % 8) % 8, '\0');
    fields.append(code).append('\1').append(type).append('\0');
    const auto length = static_cast<quint32>(std::strlen(text));
    fields.append(reinterpret_cast<const char*>(&length), sizeof length).append(text).append('\0');
}

// The call of Hello(), with which every connection begins.
QByteArray hello()
{
    QByteArray fields;
    addField(fields, 1, 'o', "/org/freedesktop/DBus");
    addField(fields, 2, 's', "org.freedesktop.DBus");
    addField(fields, 3, 's', "Hello");
    addField(fields, 6, 's', "org.freedesktop.DBus");
    const quint32 numbers[] = {0, 1, static_cast<quint32>(fields.size())}; // no body, first message, size of fields
    const char order = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? 'l' : 'B';
    QByteArray message = QByteArray(1, order).append('\1').append('\0').append('\1');
    message.append(reinterpret_cast<const char*>(numbers), sizeof numbers).append(fields);
    return message.append((8 - message.size() % 8) % 8, '\0');
}

} // namespace

bool isBusAnswering(const QByteArray& address, int milliseconds)
{
    // Of several, the first: those behind it are for when it refuses, which no bus does in silence.
    const QByteArray first = address.split(';').first();
    const bool isAbstract = first.startsWith("unix:abstract=");
    if (!isAbstract && !first.startsWith("unix:path="))
        return true;
    const QByteArray name = QByteArray::fromPercentEncoding(first.split(',').first().split('=').last());
    sockaddr_un socket = {AF_UNIX, {}};
    if (static_cast<size_t>(name.size()) + 1 >= sizeof socket.sun_path)
        return true;
    std::memcpy(socket.sun_path + isAbstract, name.constData(), static_cast<size_t>(name.size()));
    const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path)) + 1 + name.size();

    const Greeting greeting(milliseconds);
    if (!greeting.connectTo(socket, static_cast<socklen_t>(size)))
        return errno != EAGAIN; // who refuses at once keeps nobody waiting
    return greeting.say(QByteArray(1, '\0') + "AUTH EXTERNAL " + QByteArray::number(getuid()).toHex() + "\r\n") &&
           greeting.hears("OK ") && greeting.say("BEGIN\r\n" + hello()) &&
           greeting.hears(QByteArray(1, Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? 'l' : 'B'));
}
