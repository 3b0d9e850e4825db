#include "QCopChannel.h"

#include "HostBus.h"
#include "Log.h"
#include "QCopWire.h"

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
    const QString path = QString::fromUtf8(channel);
    if (!isPath(path))
        logger(3, "%s is no channel name", channel.constData());
    else
        HostBus::subscribe(path, QCopWire::interface, QCopWire::signal, this,
                           SLOT(receive(QString, QByteArray)));
}

bool QCopChannel::send(const QCString& channel, const QCString& message, const QByteArray& data)
{
    const QString path = QString::fromUtf8(channel);
    return isPath(path) &&
           HostBus::send(path, QCopWire::interface, QCopWire::signal, {QString::fromUtf8(message), data});
}

void QCopChannel::receive(const QString& message, const QByteArray& data)
{
    emit received(message.toUtf8(), data);
}
