#include "QCopChannel.h"

#include "HostBus.h"
#include "Log.h"

#include <algorithm>

namespace {

const Log logger("QCopChannel");

// What D-Bus takes as an object path; it ends the connection of a program that sends anything else.
bool isPath(const QString& channel)
{
    const auto isAllowed = [](QChar c) {
        return c == u'/' || c == u'_' || (c.unicode() < 128 && c.isLetterOrNumber());
    };
    return channel.startsWith(u'/') && !channel.endsWith(u'/') && !channel.contains(u"//") &&
           std::all_of(channel.begin(), channel.end(), isAllowed);
}

} // namespace

QCopChannel::QCopChannel(const QCString& channel, QObject* parent, const char* name) : QObject(parent)
{
    setObjectName(QString::fromLatin1(name));
    BusSignal signal = BusSignals::channel;
    signal.path = QString::fromUtf8(channel);
    if (!isPath(signal.path)) {
        logger(3, "%s is no channel name", channel.constData());
        return;
    }
    HostBus::subscribe(signal, this, [this](const HostBus::Message& message) {
        emit received(message.arguments[0].toString().toUtf8(), message.arguments[1].toByteArray());
    });
}

bool QCopChannel::send(const QCString& channel, const QCString& message, const QByteArray& data)
{
    const QString path = QString::fromUtf8(channel);
    return isPath(path) && HostBus::send(BusSignals::channel, {QString::fromUtf8(message), data}, path);
}
