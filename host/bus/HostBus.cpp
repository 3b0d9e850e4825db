#include "HostBus.h"

#include "BusActivation.h"
#include "BusEntrance.h"
#include "BusProbe.h"
#include "Log.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>

#include <unistd.h>

namespace {

const Log logger("HostBus");

constexpr int patience = 2000; // milliseconds that the bus may take to answer
bool isSilent = false;         // there is one, but it does not answer
constexpr char addressVariable[] = "DBUS_SESSION_BUS_ADDRESS";

// Empty when nobody says where the bus is.
QByteArray busAddress()
{
    const QByteArray address = qgetenv(addressVariable);
    const QByteArray socket = qgetenv("XDG_RUNTIME_DIR") + "/bus";
    return address.isEmpty() && ::access(socket, F_OK) == 0 ? "unix:path=" + socket : address;
}

bool connectLoss(QDBusConnection& connection, QObject* receiver, const char* slot)
{
    return connection.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                              QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"),
                              receiver, slot);
}

BusWatch& watch()
{
    static BusWatch watch;
    return watch;
}

QDBusMessage callToBus(const QString& interface, const QString& method, const QVariantList& arguments)
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"), interface, method);
    call.setArguments(arguments);
    return call;
}

// From the moment of the subscription on, so that no change of the owner is missed.
void followServiceName(QDBusConnection& session)
{
    const QString interface = QStringLiteral("org.freedesktop.DBus");
    session.connect(interface, QString(), interface, QStringLiteral("NameOwnerChanged"), {BusSignals::service},
                    QString(), &watch(), SLOT(changeOwner(QDBusMessage)));
    const QDBusMessage answer = session.call(
        callToBus(interface, QStringLiteral("GetNameOwner"), {BusSignals::service}), QDBus::Block, patience);
    watch().setOwnName(session.baseService());
    if (answer.type() == QDBusMessage::ReplyMessage)
        watch().setServiceOwner(answer.arguments().value(0).toString());
}

QDBusConnection& bus()
{
    static QDBusConnection connection = [] {
        qDBusRegisterMetaType<HostBus::Texts>();
        HostBus::avoidSilentBus();
        // Not sessionBus(): that one holds messages back until the event loop runs for the first time, and then
        // delivers them behind newer ones.
        QDBusConnection session =
            QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("vistane"));
        if (!session.isConnected()) {
            logger(3, "no session bus: %s",
                   isSilent ? "it does not answer" : qUtf8Printable(session.lastError().message()));
            return session;
        }
        connectLoss(session, &watch(), SLOT(reportLoss()));
        followServiceName(session);
        return session;
    }();
    return connection;
}

// What the bus answers to who wants a name; 0 when it does not answer.
enum NameReply { NoReply = 0, Owner = 1, AnotherOwns = 3, OwnedAlready = 4 };

NameReply requestName(const QString& name)
{
    constexpr uint doNotQueue = 4;
    const QDBusMessage request =
        callToBus(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("RequestName"), {name, doNotQueue});
    return static_cast<NameReply>(bus().call(request, QDBus::Block, patience).arguments().value(0).toInt());
}

} // namespace

namespace HostBus {

void avoidSilentBus()
{
    isSilent = isSilent || !isBusAnswering(busAddress(), patience);
    if (!isSilent)
        return;
    qputenv(addressVariable, "unix:path=/nonexistent");
}

bool hasAddress()
{
    return !busAddress().isEmpty();
}

bool isConnected()
{
    return bus().isConnected();
}

bool send(const BusSignal& signal, const QVariantList& arguments, const QString& path)
{
    if (!isConnected())
        return false;
    QDBusMessage message =
        QDBusMessage::createSignal(path.isEmpty() ? signal.path : path, signal.interface, signal.name);
    message.setArguments(arguments);
    return bus().send(message);
}

bool subscribe(const BusSignal& signal, QObject* context, Receiver receive, RefusedReceiver refused)
{
    if (!isConnected())
        return false;
    auto* entrance = new BusEntrance(
        signal, std::move(receive), std::move(refused),
        [](const QString& sender) { return watch().mayBeService(sender); }, context);
    return bus().connect(signal.sender, signal.path, signal.interface, signal.name, entrance,
                         SLOT(receive(QDBusMessage)));
}

void call(const QDBusMessage& method, int milliseconds, QObject* context,
          std::function<void(const QDBusMessage& answer)> answered)
{
    const QDBusPendingCall pending =
        isConnected() ? bus().asyncCall(method, milliseconds)
                      : QDBusPendingCall::fromError(QDBusError(QDBusError::Disconnected, QString()));
    auto* watcher = new QDBusPendingCallWatcher(pending, context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context,
                     [watcher, answered = std::move(answered)] {
                         watcher->deleteLater();
                         answered(watcher->reply());
                     });
}

QString ownName()
{
    return bus().baseService();
}

void deliverPending(QObject* context)
{
    for (BusEntrance* entrance : context->findChildren<BusEntrance*>(Qt::FindDirectChildrenOnly))
        QCoreApplication::sendPostedEvents(entrance, QEvent::MetaCall);
}

bool ownServiceName()
{
    const NameReply reply = isConnected() ? requestName(BusSignals::service) : NoReply;
    return reply == Owner || reply == OwnedAlready;
}

bool beOnlyMenu(QObject* context, std::function<void(const QByteArray& token)> raise)
{
    if (!isConnected())
        return true;
    const QString path = QStringLiteral("/org/vistane/Menu");
    // First of all: who finds the name must find the object.
    bus().registerObject(path, new BusActivation(std::move(raise), context),
                         QDBusConnection::ExportScriptableSlots);
    if (requestName(BusSignals::menu) != AnotherOwns)
        return true;
    QDBusMessage call = QDBusMessage::createMethodCall(
        BusSignals::menu, path, QStringLiteral("org.freedesktop.Application"), QStringLiteral("Activate"));
    const QString token = qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
    call.setArguments({QVariantMap{{QStringLiteral("activation-token"), token}}});
    bus().send(call); // it may be busy, so nobody waits for its answer
    flush();
    return false;
}

bool hasService()
{
    return isConnected() && watch().hasService();
}

void onServiceLost(QObject* context, std::function<void()> lost)
{
    QObject::connect(&watch(), &BusWatch::serviceLost, context, std::move(lost));
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
    const QDBusMessage ping =
        callToBus(QStringLiteral("org.freedesktop.DBus.Peer"), QStringLiteral("Ping"), {});
    return bus().call(ping, QDBus::Block, patience).type() == QDBusMessage::ReplyMessage;
}

} // namespace HostBus
