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

constexpr char byteOrder = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? 'l' : 'B';

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
    const quint32 numbers[] = {0, 1,
                               static_cast<quint32>(fields.size())}; // no body, first message, size of fields
    QByteArray message = QByteArray(1, byteOrder).append('\1').append('\0').append('\1');
    message.append(reinterpret_cast<const char*>(numbers), sizeof numbers).append(fields);
    return message.append((8 - message.size() % 8) % 8, '\0');
}

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

    // Whether the bus lets us in and answers the first call.
    bool isAnswered() const
    {
        return say(QByteArray(1, '\0') + "AUTH EXTERNAL " + QByteArray::number(getuid()).toHex() + "\r\n") &&
               hears("OK ") && say("BEGIN\r\n" + hello()) && hears(QByteArray(1, byteOrder));
    }

private:
    bool say(const QByteArray& bytes) const
    {
        return send(mSocket, bytes.constData(), static_cast<size_t>(bytes.size()), MSG_NOSIGNAL) ==
               bytes.size();
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

    const int mSocket = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    const QDeadlineTimer mEnd;
};

// The socket that an address names, and its size; 0 for an address of another kind.
socklen_t socketOf(const QByteArray& address, sockaddr_un& socket)
{
    constexpr char kind[] = "unix:";
    if (!address.startsWith(kind))
        return 0;
    for (const QByteArray& setting : address.sliced(sizeof kind - 1).split(',')) {
        const qsizetype equals = setting.indexOf('=');
        const QByteArray key = setting.left(equals);
        QByteArray name = QByteArray::fromPercentEncoding(setting.sliced(equals + 1));
        if (key == "runtime")
            name = qgetenv("XDG_RUNTIME_DIR") + "/bus";
        const bool isAbstract = key == "abstract";
        if ((!isAbstract && key != "path" && key != "runtime") ||
            static_cast<size_t>(name.size()) + 1 >= sizeof socket.sun_path)
            continue;
        std::memcpy(socket.sun_path + isAbstract, name.constData(), static_cast<size_t>(name.size()));
        return static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + static_cast<size_t>(name.size()));
    }
    return 0;
}

} // namespace

bool isBusAnswering(const QByteArray& addresses, int milliseconds)
{
    for (const QByteArray& address : addresses.split(';')) {
        sockaddr_un socket = {AF_UNIX, {}};
        const socklen_t size = socketOf(address, socket);
        if (size == 0 && !address.isEmpty())
            return false;
        const Greeting greeting(milliseconds);
        if (size > 0 && greeting.connectTo(socket, size))
            return greeting.isAnswered();
        if (size > 0 && errno == EAGAIN) // it has no room for us, and may never have
            return false;
    }
    return true;
}
