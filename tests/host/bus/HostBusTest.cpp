#include "HostBus.h"
#include "BusProbe.h"
#include "LogCapture.h"
#include "NR_Constants.h"
#include "Vt_Event.h"
#include "Vt_EventAndStatusFacade.h"
#include "Vt_EventHandler.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

// Another program on the bus, as the bus sees it.
struct Stranger
{
    ~Stranger() { QDBusConnection::disconnectFromBus("stranger"); }

    void send(const BusSignal& signal, const QVariantList& arguments)
    {
        QDBusMessage message = QDBusMessage::createSignal(signal.path, signal.interface, signal.name);
        message.setArguments(arguments);
        EXPECT_TRUE(bus.send(message));
    }

    // Until all that was sent has been dealt with.
    void deliver()
    {
        bus.call(
            QDBusMessage::createMethodCall("org.freedesktop.DBus", "/", "org.freedesktop.DBus.Peer", "Ping"));
        HostBus::flush();
        QCoreApplication::sendPostedEvents();
    }

    QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "stranger");
};

// Arguments of any type, at most two of them: 42 signatures, each of which no signal of ours has.
std::vector<QVariantList> anyArguments()
{
    QVariantList values = {5, "text", 5.0, QVariantMap{{"key", 5}}};
    values << QVariant::fromValue(HostBus::Texts()) << QVariant::fromValue(QDBusVariant(5));
    std::vector<QVariantList> lists = {{}};
    for (const QVariant& first : values) {
        lists.push_back({first});
        for (const QVariant& second : values)
            lists.push_back({first, second});
    }
    std::erase(lists, QVariantList{5}); // a return to idle
    return lists;
}

struct Handler : Vt_EventHandler
{
    using Vt_EventHandler::Vt_EventHandler;
    void handleEvent(const Vt_Event& event) override { values.push_back(event.value()); }
    std::vector<int> values;
};

QVariantList event(const std::string& name, int value, const QString& text = {})
{
    return {QString::fromStdString(name), value, QVariant::fromValue(HostBus::Texts()), true, text, 0};
}

} // namespace

TEST(HostBus, NothingButTheVerySignatureIsLetIn)
{
    const LogCapture log;
    QObject context;
    int letIn = 0;
    BusSignal channel = BusSignals::channel;
    channel.path = "/Vistane/MenuListener";
    const BusSignal ours[] = {BusSignals::event, channel, BusSignals::request, BusSignals::returnToIdle};
    for (const BusSignal& signal : ours)
        ASSERT_TRUE(HostBus::subscribe(signal, &context, [&](const HostBus::Message&) { ++letIn; }));
    HostBus::flush();

    Stranger stranger;
    const std::vector<QVariantList> all = anyArguments();
    for (const BusSignal& signal : ours)
        for (const QVariantList& arguments : all)
            stranger.send(signal, arguments);
    stranger.deliver();
    EXPECT_EQ(letIn, 0);
    EXPECT_GE(log.lines().size(), 4 * all.size()) << "each has its line";

    stranger.send(BusSignals::returnToIdle, {5});
    stranger.send(channel, {"close", QByteArray("\0", 1)});
    stranger.send(channel, {"close", QByteArray(HostBus::largestText + 1, 'x')});
    stranger.send(BusSignals::event, event("5", 7, QString(HostBus::largestText + 1, 'x')));
    stranger.send(BusSignals::request, {"loadURL", QStringList(HostBus::mostElements + 1)});
    stranger.deliver();
    EXPECT_EQ(letIn, 3);
}

TEST(HostBus, WhoIsNoServiceCannotPlayOne)
{
    const LogCapture log;
    const Handler status(NR_Constants::EVENT_NOTIFY_MANUAL_REFRESH_STATUS);
    const Handler asked(NR_Constants::EVENT_INITIATE_MANUAL_REFRESH);
    const auto sendBoth = [](Stranger& peer, int value) {
        peer.send(BusSignals::event, event(NR_Constants::EVENT_NOTIFY_MANUAL_REFRESH_STATUS, value));
        peer.send(BusSignals::event, event(NR_Constants::EVENT_INITIATE_MANUAL_REFRESH, value));
        peer.deliver();
    };
    QDBusConnection service = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "service");
    Stranger stranger;
    sendBoth(stranger, 1);
    ASSERT_TRUE(service.registerService(BusSignals::service));
    EXPECT_FALSE(HostBus::ownServiceName()) << "there is one already";
    sendBoth(stranger, 2);
    Stranger itself{service};
    sendBoth(itself, 3);
    Vt_EventAndStatusFacade::instance()->sendEvent(
        Vt_Event(NR_Constants::EVENT_NOTIFY_MANUAL_REFRESH_STATUS, 4), 0);
    service.unregisterService(BusSignals::service);
    sendBoth(stranger, 5);
    EXPECT_EQ(status.values, (std::vector{1, 3, 4, 5}));
    EXPECT_EQ(asked.values, (std::vector{1, 2, 3, 5}));
    EXPECT_EQ(log.lines().size(), 1U) << log.text();
    QDBusConnection::disconnectFromBus("service");
}

// A socket that takes connections and never says a word, as far as its backlog goes; then it takes none.
TEST(HostBus, ABusThatKeepsSilentIsNone)
{
    const QTemporaryDir dir;
    const QByteArray path = dir.filePath("bus").toUtf8();
    const int listener = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address = {AF_UNIX, {}};
    qstrncpy(address.sun_path, path, sizeof address.sun_path);
    ASSERT_EQ(bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    EXPECT_TRUE(isBusAnswering("unix:path=" + path, 100)) << "who refuses is not waited for";
    ASSERT_EQ(listen(listener, 0), 0);
    const QByteArray silent = "unix:guid=0123,path=" + path, real = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    for (const QByteArray& none : {silent, silent, "unix:path=/nowhere;" + silent, "tcp:host=h,port=1"_ba,
                                   "autolaunch:"_ba, "unix:=,path;;="_ba})
        EXPECT_FALSE(isBusAnswering(none, 100)) << none.constData();
    for (const QByteArray& good : {real, "unix:path=/nowhere;" + real, "unix:path=/nowhere"_ba, ""_ba})
        EXPECT_TRUE(isBusAnswering(good, 60'000)) << good.constData();
    close(listener);
}
