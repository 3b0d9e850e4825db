#include "PortalRequest.h"

#include "HostBus.h"
#include "Text.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QTimer>

#include <utility>

namespace {

constexpr char portalName[] = "org.freedesktop.portal.Desktop";
constexpr int callPatience = 10'000; // milliseconds; the bus may have to start the portal first

constexpr char portalPath[] = "/org/freedesktop/portal/desktop";

QString newToken()
{
    static int count = 0;
    return QStringLiteral("vistane%1").arg(++count);
}

QString handleOf(const QString& token)
{
    const QString sender = HostBus::ownName().remove(u':').replace(u'.', u'_');
    return QLatin1String(portalPath) + QStringLiteral("/request/") + sender + u'/' + token;
}

QDBusMessage methodOf(const QString& portal, const char* interface, const char* method)
{
    return QDBusMessage::createMethodCall(portal, QLatin1String(portalPath), QLatin1String(interface),
                                          QLatin1String(method));
}

bool isError(const QString& error, const char* name)
{
    return error == QLatin1String("org.freedesktop.DBus.Error.") + QLatin1String(name);
}

// Many a desktop has no portal, and that there is no bus was said already.
bool isNoWonder(const QString& error)
{
    return isError(error, "ServiceUnknown") || isError(error, "Disconnected");
}

std::string wordsOf(const QDBusMessage& error)
{
    constexpr qsizetype most = 100;
    const QString words = error.errorName() + QStringLiteral(": ") + error.errorMessage().left(most);
    return Text::withoutControls(words.toStdString());
}

// What an error says of the link. The portal's own refusal stands; where nothing came back, the portal may have opened
// the link; any other error means that nobody took the call.
LinkAnswer::What meaningOf(const QString& error)
{
    if (error.startsWith(QLatin1String("org.freedesktop.portal.Error.")))
        return LinkAnswer::Refused;
    for (const char* silence : {"NoReply", "Timeout", "TimedOut", "Disconnected"}) {
        if (isError(error, silence))
            return LinkAnswer::Unknown;
    }
    return LinkAnswer::Absent;
}

} // namespace

PortalRequest::PortalRequest(QString link, LinkAnswered answered, int patience)
    : mLink(std::move(link)),
      mAnswered(std::move(answered)),
      mPatience(patience),
      mToken(newToken()),
      mHandle(handleOf(mToken))
{
    const QString name = QLatin1String(portalName);
    HostBus::call(methodOf(name, "org.freedesktop.DBus.Peer", "Ping"), callPatience, this,
                  [this](const QDBusMessage& pong) {
                      if (pong.type() == QDBusMessage::ReplyMessage)
                          open(pong.service());
                      else
                          settle(LinkAnswer::Absent,
                                 isNoWonder(pong.errorName()) ? std::string() : wordsOf(pong));
                  });
}

void PortalRequest::open(const QString& portal)
{
    listen(portal);
    QDBusMessage call = methodOf(portal, "org.freedesktop.portal.OpenURI", "OpenURI");
    const QVariantMap options = {{QStringLiteral("handle_token"), mToken}};
    call.setArguments({QString(), mLink, options}); // there is no way to name our window that every display has
    HostBus::call(call, callPatience, this, [this](const QDBusMessage& reply) { handleReply(reply); });
}

void PortalRequest::listen(const QString& portal)
{
    const BusSignal response = {mHandle,
                                QStringLiteral("org.freedesktop.portal.Request"),
                                QStringLiteral("Response"),
                                QStringLiteral("ua{sv}"),
                                false,
                                portal};
    HostBus::subscribe(
        response, this,
        [this](const HostBus::Message& message) { handleResponse(message.arguments.at(0).toUInt()); },
        [this](const HostBus::Refused&) {
            settle(LinkAnswer::Unknown, "the portal's response makes no sense");
        });

    const QString bus = QStringLiteral("org.freedesktop.DBus");
    const BusSignal ownerChanged = {QStringLiteral("/org/freedesktop/DBus"),
                                    bus,
                                    QStringLiteral("NameOwnerChanged"),
                                    QStringLiteral("sss"),
                                    true,
                                    bus};
    HostBus::subscribe(ownerChanged, this, [this, portal](const HostBus::Message& message) {
        if (message.arguments.at(0) == portal)
            settle(LinkAnswer::Unknown, "the portal has gone");
    });
}

void PortalRequest::handleReply(const QDBusMessage& reply)
{
    if (reply.type() != QDBusMessage::ReplyMessage)
        return settle(meaningOf(reply.errorName()), wordsOf(reply));
    if (reply.signature() != QLatin1String("o") ||
        reply.arguments().at(0).value<QDBusObjectPath>().path() != mHandle)
        return settle(LinkAnswer::Unknown, "the portal's reply makes no sense");
    QTimer::singleShot(mPatience, this, [this] { settle(LinkAnswer::Unknown, "the portal does not respond"); });
}

void PortalRequest::handleResponse(uint response)
{
    switch (response) {
    case 0:
        return settle(LinkAnswer::Opened);
    case 1:
        return settle(LinkAnswer::Cancelled, "cancelled by the person");
    default:
        return settle(LinkAnswer::Refused, "the portal has not opened it");
    }
}

void PortalRequest::settle(LinkAnswer::What what, const std::string& reason)
{
    if (const LinkAnswered answered = std::exchange(mAnswered, {})) {
        deleteLater();
        answered({what, reason});
    }
}
