#include "HostBus.h"
#include "NR_Constants.h"
#include "QCopChannel.h"
#include "SettingHelper.h"
#include "StandInService.h"
#include "Vistanectl.h"
#include "Vt_Event.h"

#include <QProcess>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <tuple>

namespace {

class Watching : public QProcess
{
public:
    Watching(const QProcessEnvironment& environment, const QStringList& arguments)
    {
        setProcessEnvironment(environment);
        start(Vistanectl::program, arguments);
        EXPECT_TRUE(QTest::qWaitFor([this] { return readAllStandardError().contains("watching"); }, 10000));
    }
    ~Watching() override
    {
        kill();
        waitForFinished();
    }

    // The next line that it prints.
    std::string line()
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return canReadLine(); }, 10000));
        return readLine().toStdString();
    }
};

} // namespace

TEST(Bus, WhatIsSentIsWatched)
{
    const Vistanectl ctl;
    Watching people(ctl.environment, {"watch"});
    Watching machines(ctl.environment, {"watch", "--json"});
    const std::tuple<QStringList, const char*, std::string> cases[] = {
        {{"send", "EVENT_NOTIFY_STORAGE_STATUS", "-1", "--param", "free=a=b\tc", "--text", "two\nlines",
          "--param", "used=", "--mode", "-2"},
         "event\tEVENT_NOTIFY_STORAGE_STATUS\t-1\tmode=-2\ttext=two\\nlines\tparam.free=a=b\\tc\tparam.used=\n",
         R"({"kind":"event","mode":-2,"name":"EVENT_NOTIFY_STORAGE_STATUS",)"
         R"("parameters":{"free":"a=b\tc","used":""},"text":"two\nlines","value":-1})"},
        {{"close"},
         "channel\t/Vistane/MenuListener\tclose\n",
         R"({"channel":"/Vistane/MenuListener","data":"","kind":"channel","message":"close"})"},
        {{"idle"}, "idle\t0\n", R"({"kind":"idle","reason":0})"},
    };
    for (const auto& [arguments, line, json] : cases) {
        const Vistanectl::Result result = ctl.run(arguments);
        EXPECT_EQ(result.exit, 0) << result.err;
        EXPECT_EQ(people.line(), line);
        EXPECT_EQ(machines.line(), json + '\n');
    }
    HostBus::send(BusSignals::request, {"loadURL", QStringList{"http://h/\x1b[1m", ""}});
    EXPECT_EQ(people.line(), "request\tloadURL\thttp://h/\\u001b[1m\t\n");
    QCopChannel::send("/Some/Channel", "hello", QByteArray("\0\xff", 2));
    EXPECT_EQ(people.line(), "channel\t/Some/Channel\thello\tdata=00ff\n");
    HostBus::send(BusSignals::event, {"EVENT_NAVIGATE"});
    EXPECT_EQ(people.line(), "unknown\t/Vistane/Events\torg.vistane.Core1\tEvent\ts\n");
}

TEST(Bus, WithoutABusTheSendersSaySo)
{
    Vistanectl ctl;
    ctl.environment.insert("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    for (const QStringList& arguments :
         {QStringList{"send", "EVENT_NAVIGATE"}, {"close"}, {"idle"}, {"watch"}}) {
        const Vistanectl::Result result = ctl.run(arguments);
        EXPECT_EQ(result.exit, 4) << arguments.join(' ').toStdString();
        EXPECT_EQ(result.out, "");
        EXPECT_NE(result.err.find("no session bus"), std::string::npos) << result.err;
    }
}

TEST(Bus, TheStandInsTimeStopsWhereTheStoresNumbersEnd)
{
    const TestStore store;
    StandInService::Plan plan = {.stepMs = 0, .clock = [] { return std::time_t(4'000'000'000); }};
    StandInService service(plan, [](const std::string&, const std::string&) {});
    QSignalSpy over(&service, &StandInService::runOver);
    service.handleEvent(Vt_Event(NR_Constants::EVENT_INITIATE_MANUAL_REFRESH));
    EXPECT_TRUE(over.wait(60'000));
    EXPECT_EQ(getIntSetting(GROUP_DCD, "RuntimeValues.LastUpdateTime"), 2147483647);
}

TEST(Bus, WatchingEndsWithTheBus)
{
    QProcess bus;
    bus.start("dbus-daemon", {"--session", "--nofork", "--print-address"});
    ASSERT_TRUE(QTest::qWaitFor([&] { return bus.canReadLine(); }, 10000));
    QProcessEnvironment environment = Vistanectl().environment;
    environment.insert("DBUS_SESSION_BUS_ADDRESS", QString::fromLatin1(bus.readLine().trimmed()));
    Watching watching(environment, {"watch"});
    bus.kill();
    bus.waitForFinished();
    ASSERT_TRUE(watching.waitForFinished(10000));
    EXPECT_EQ(watching.exitCode(), 4);
}
