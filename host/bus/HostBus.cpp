#include "HostBus.h"

#include "BusLossReporter.h"
#include "Log.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

namespace {

const Log logger("HostBus");

bool connectLoss(QDBusConnection& connection, QObject* receiver, const char* slot)
{
    return connection.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                              QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"),
                              receiver, slot);
}

QDBusConnection& bus()
{
    static QDBusConnection connection = [] {
        // Not sessionBus(): that one holds messages back until the event loop runs for the first time, and then
        // delivers them behind newer ones.
        QDBusConnection session =
            QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("vistane"));
        if (!session.isConnected())
            logger(3, "no session bus: %s", qUtf8Printable(session.lastError().message()));
        static BusLossReporter reporter;
        connectLoss(session, &reporter, SLOT(report()));
        return session;
    }();
    return connection;
}

} // namespace

namespace HostBus {

bool isConnected()
{
    return bus().isConnected();
}

bool send(const QString& path, const QString& interface, const QString& signal, const QVariantList& arguments)
{
    if (!isConnected())
        return false;
    QDBusMessage message = QDBusMessage::createSignal(path, interface, signal);
    message.setArguments(arguments);
    return bus().send(message);
}

bool subscribe(const QString& path, const QString& interface, const QString& signal, QObject* receiver,
               const char* slot)
{
    return isConnected() && bus().connect(QString(), path, interface, signal, receiver, slot);
}

bool onLost(QObject* receiver, const char* slot)
{
    return isConnected() && connectLoss(bus(), receiver, slot);
}

bool flush()
{
    if (!isConnected())
        return false;
    // The bus answers in order, so its answer comes after all that went before.
    QDBusMessage ping =
        QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/"),
                                       QStringLiteral("org.freedesktop.DBus.Peer"), QStringLiteral("Ping"));
    return bus().call(ping).type() == QDBusMessage::ReplyMessage;
}

} // namespace HostBus
