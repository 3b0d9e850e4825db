#include "DesktopStandIn.h"
#include "FileContent.h"
#include "HostBus.h"
#include "NR_Constants.h"
#include "OperatorPack.h"
#include "QCopChannel.h"
#include "SettingHelper.h"
#include "StandInService.h"
#include "Table.h"
#include "TestStore.h"
#include "Vt_Event.h"

#include <QProcess>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace {

const char smallPack[] = R"({
    "settings": {"VtCore.Menu": {"Details.title": "Details", "Details.visible": true},
                 "VtNewsReader.UI": {"ScrollingRate": 1}},
    "channels": [{"id": "c1", "title": "News"}],
    "profiles": [{"id": "p1", "name": "One"}, {"id": "p2", "name": "Two", "selectable": false}]})";

// The built program, in a folder and on a store of its own, which starts from `pack` and holds nothing else.
struct Vistanectl
{
    struct Result
    {
        int exit;
        std::string out, err;
    };

    explicit Vistanectl(const QByteArray& pack = smallPack) : store(pack) {}

    Result run(const QStringList& arguments) const
    {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(dir.path());
        process.start(VISTANECTL, arguments);
        EXPECT_TRUE(process.waitForFinished() && process.exitStatus() == QProcess::NormalExit);
        return {process.exitCode(), process.readAllStandardOutput().toStdString(),
                process.readAllStandardError().toStdString()};
    }

    // Runs commands one after the other. A row has a command, its exit status, the whole of what it prints and a part
    // of what it complains of, where nothing means that it does not. "^" stands for a line feed, "~" for a space within
    // an argument.
    void runAll(const std::string& rows) const
    {
        QString text = QString::fromStdString(rows);
        text.replace("@title", "VtCore.Menu.Details.title").replace("@visible", "VtCore.Menu.Details.visible");
        text.replace("@rate", "VtNewsReader.UI.ScrollingRate");
        for (auto row : table<4>(text.toStdString())) {
            for (std::string& cell : row)
                std::ranges::replace(cell, '^', '\n');
            const auto& [command, exit, out, err] = row;
            SCOPED_TRACE(command);
            const Result result = run(QString::fromStdString(command).split(' ').replaceInStrings("~", " "));
            EXPECT_EQ(std::to_string(result.exit), exit);
            EXPECT_EQ(result.out, out);
            EXPECT_TRUE(err.empty() ? result.err.empty() : result.err.find(err) != std::string::npos)
                << result.err;
        }
    }

    QString file(const char* name) const { return dir.filePath(name); }
    void write(const char* name, const char* text) const { std::ofstream(file(name).toStdString()) << text; }

    QTemporaryDir dir;
    TestStore store;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment(); // names the store
};

struct Command : testing::Test, Vistanectl
{
};

struct Watching : QProcess
{
    Watching(const QProcessEnvironment& environment, const QStringList& arguments)
    {
        setProcessEnvironment(environment);
        start(VISTANECTL, arguments);
        EXPECT_TRUE(QTest::qWaitFor([this] { return readAllStandardError().contains("watching"); }, 10000));
    }
    // The next line that it prints.
    std::string line()
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return canReadLine(); }, 10000));
        return readLine().toStdString();
    }
};

TEST_F(Command, SettingsAreReadSetAndResetAndKeepTheirType)
{
    runAll("get @visible|0|true^;set @visible false|0;get @visible|0|false^;reset @visible|0;"
           "set @title a\tb\\n|0;get @title|0|a\tb\\n^;set @rate -5|0;"
           "list|0|@title\tstring\tuser\ta\\tb\\\\n^@visible\tbool\tpack\ttrue^@rate\tint\tuser\t-5^;"
           "list Nothing|0;reset @title|0;reset @title|1||@title;get @title|0|Details^;"
           "set @visible 1|1||@visible;set @rate 2147483648|1||@rate;set @rate ~1|1||@rate;"
           "set @rate 1 --type string|1||int;set @rate 1 --type float|2||float;set @title a^b|1||@title;"
           "set VtCore.Menu.New 1|1||VtCore.Menu.New;set 11.z.z 1 --type string|0;"
           "set 5.z.z 5 --type int|1||5.z.z;list 11.|0|11.z.z\tstring\tuser\t1^");
    // Texts that a command line parser could take for something else.
    for (const std::string text : {"", "{}", "[a,b]", "close", "--json"})
        runAll("set @title -- " + text + "|0;get @title|0|" + text + '^');
}

TEST_F(Command, WhatIsMissingOrMisspeltIsNamed)
{
    EXPECT_EQ(run({}).exit, 2);
    runAll("gett @title|2||gett;get|2||KEY;get @title more|2||more;get --loud @title|2||--loud;"
           "get VtCore.Menu.Nothing|1||VtCore.Menu.Nothing;get VtCore.Menue.title|1||VtCore.Menue.title;"
           "channel remove c9|1||c9;channel add c9 two^lines|2||TITLE;profile use p9|1||p9;"
           "profile add p9 DISABLE:Gold|2||NAME;profile use p2|1||p2;device set colour red|1||colour;"
           "send EVENT_UNKNOWN|1||EVENT_UNKNOWN;send EVENT_NAVIGATE six|2||six;"
           "send EVENT_NAVIGATE --param x|2||x");
}

TEST_F(Command, FactsChannelsAndProfilesAreKept)
{
    runAll("device set roaming -1|0;device set friendly 1|0;device set model |0;device set imsi 1|0;device "
           "unset imsi|0;device unset "
           "imsi|1||imsi;"
           "device "
           "list|0|imsi\t\t^msisdn\t\t^home_network\t\t^current_network\t\t^roaming\t-1\thand^"
           "friendly\ttrue\thand^"
           "user_select_profile\t\t^model\t\thand^sw_version\t\t^dpp_version\t\t^|no system bus;channel add -1 "
           "Sport|0;"
           "channel add c1 World|0;channel list|0|c1\tWorld^-1\tSport^;channel remove c1|0;channel "
           "list|0|-1\tSport^;"
           "profile use p1|0;profile add p3 Three --locked|0;profile remove p2|0;"
           "profile list|0|p1\tOne\tselectable\tcurrent^p3\tThree\tlocked\t^;"
           "profile add p1 One --locked|0||p1: is in force but locked");
}

TEST_F(Command, PacksAreInstalledWholeOrNotAtAll)
{
    ASSERT_EQ(mkfifo(file("pipe").toUtf8(), 0600), 0);
    write("large.json", "");
    ASSERT_TRUE(QFile::resize(file("large.json"), 16 * 1024 * 1024 + 1));
    write("good.json", R"({"settings": {"VtCore.Menu": {"Details.title": "New"}}})");
    write("bad.json", R"({"settings": {"VtCore.Menu": {"Details.title": "Bad", "x.y": 1.5}}})");
    runAll("pack check good.json|0;pack check bad.json|1||VtCore.Menu.x.y;"
           "pack install bad.json|1||VtCore.Menu.x.y;pack install none.json|1||none.json;"
           "device set imsi 42|0;pack export copy.json|0;pack install good.json|0;"
           "list|0|@title\tstring\tpack\tNew^;pack install copy.json|0;get @title|0|Details^;"
           "pack export /nonexistent/pack.json|1||/nonexistent/pack.json;"
           "pack check /dev/zero|1||is no plain file;pack check pipe|1||is no plain file;"
           "pack check large.json|1||is larger than 16 MB;"
           "scene load good.json|1||settings: is no section of a scene;"
           "scene load " SOURCE_DIR "/share/scenes/demo.json|0;"
           "channel list|0|world\tWorld News^sport\tSport^weather\tWeather^");
    for (const char* output : {"-", "/proc/self/fd/1"})
        EXPECT_EQ(run({"pack", "export", output}).out, run({"pack", "export"}).out) << output;
    // A device of its own, which only root can make: one of the machine's could be replaced by a fault.
    if (mknod(file("full").toUtf8(), S_IFCHR | 0600, makedev(1, 7)) == 0)
        runAll("pack export full|1||full");
    EXPECT_FALSE(QFileInfo(file("full")).isFile());
    EXPECT_EQ(WEXITSTATUS(std::system(VISTANECTL " pack export >/dev/full")), 1);
}

TEST_F(Command, MachinesGetJson)
{
    runAll("set @title a\tb\\n\"c\"|0;profile use p1|0");
    runAll(R"(
--json get @rate|0|{"key":"@rate","type":"int","value":1}^
list VtCore.Menu.Details.t --json|0|[^{"key":"@title","layer":"user","type":"string","value":"a\tb\\n\"c\""}^]^
list Nothing --json|0|[]^
profile list --json|0|[^{"current":true,"id":"p1","name":"One","selectable":true},^)"
           R"({"current":false,"id":"p2","name":"Two","selectable":false}^]^)");
}

TEST_F(Command, WithoutAStoreOrABusNothingIsPretended)
{
    environment.insert("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    runAll("send EVENT_NAVIGATE|4||no session bus;close|4||no session bus;idle|4||no session bus;"
           "watch|4||no session bus");
    environment.insert("VISTANE_DB", "/proc/vistane/core.db");
    write("pack.json", "{}");
    runAll("get @rate|3||cannot be used;set @rate 1|3||cannot be used;device list|3||cannot be used;"
           "pack install pack.json|3||cannot be used;pack check pack.json|0");
}

TEST(Launcher, SaysWhatWasStarted)
{
    const DesktopStandIn desktop;
    Vistanectl tool;
    tool.runAll("open tel:+1(202)5550123|0|gio open -- tel:+12025550123\ttrue^;"
                "open nobody:1|1|refused\ttrue^|refused: a nobody: link was not opened;"
                "open javascript:alert(1)|1|refused\tfalse^|a link that may not be opened: javascript:alert(1);"
                "open home|1|nothing\tfalse^|nothing was started");
    tool.environment.insert("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    tool.runAll("open tel:1|0|gio open -- tel:1\ttrue^|no session bus");
}

// docs/operators.md ends with what the program says of its settings.
TEST_F(Command, TheOperatorsGuideHoldsWhatItSays)
{
    const std::string guide = contentOf(SOURCE_DIR "/docs/operators.md");
    EXPECT_EQ(guide.substr(guide.find("### ")) + '\n', run({"guide"}).out);
}

TEST(Tree, IsWhatAPersonWouldSee)
{
    const Vistanectl tool(OperatorPack::builtIn().toJson());
    tool.runAll("set VtCore.Menu.ConfigureHeadlines.ChildIDs Scrolling,Download,SetupHeadlines|0;"
                "set VtCore.Menu.SetupHeadlines.ChildIDs ConfigureHeadlines,HowToUse,Nobody,AddNewChannel|0;"
                "set VtCore.Menu.SetupHeadlines.visible true --type bool|0;"
                "set VtCore.Menu.Download.enabled false|0;"
                "menu|0|Settings\t\t\tnode^  Scrolling speed\tMedium\t\tform^"
                "  Download\tAlways\tgreyed\tform^  Headlines\t\t\tnode^"
                "How to use headlines\t\t\taction^Add a channel\t\t\tlink^");
}

TEST_F(Command, WhatIsSentIsWatched)
{
    Watching people(environment, {"watch"}), machines(environment, {"watch", "--json"});
    for (const auto& [command, line, json] : table<3>(
             "send EVENT_NOTIFY_STORAGE_STATUS -1 --param free=a=b\tc --text two^lines --param used= --mode -2|"
             "event\tEVENT_NOTIFY_STORAGE_STATUS\t-1\tmode=-2\ttext=two\\nlines\t"
             "param.free=a=b\\tc\tparam.used=|"
             R"({"kind":"event","mode":-2,"name":"EVENT_NOTIFY_STORAGE_STATUS",)"
             R"("parameters":{"free":"a=b\tc","used":""},"text":"two\nlines","value":-1};)"
             "set VtCore.Menu.Details.title New|changed\tVtCore.Menu.Details.title|"
             R"({"kind":"changed","names":["VtCore.Menu.Details.title"]};)"
             "device set model M|changed\tdevice.model|"
             R"({"kind":"changed","names":["device.model"]};)"
             "channel add new New|changed\tchannels|"
             R"({"kind":"changed","names":["channels"]};)"
             "profile add new New|changed\tprofiles|"
             R"({"kind":"changed","names":["profiles"]};)"
             "pack install " SOURCE_DIR "/share/packs/en.json|changed|"
             R"({"kind":"changed","names":[]};)"
             "close|channel\t/Vistane/MenuListener\tclose|"
             R"({"channel":"/Vistane/MenuListener","data":"","kind":"channel","message":"close"};)"
             "idle|idle\t0|"
             R"({"kind":"idle","reason":0})")) {
        runAll(command + "|0");
        EXPECT_EQ(people.line(), line + '\n');
        EXPECT_EQ(machines.line(), json + '\n');
    }
    HostBus::send(BusSignals::request, {"loadURL", QStringList{"http://h/\x1b[1m", ""}});
    EXPECT_EQ(people.line(), "request\tloadURL\thttp://h/\\u001b[1m\t\n");
    QCopChannel::send("/Some/Channel", "hello", QByteArray("\0\xff", 2));
    EXPECT_EQ(people.line(), "channel\t/Some/Channel\thello\tdata=00ff\n");
    HostBus::send(BusSignals::event, {"EVENT_NAVIGATE"});
    EXPECT_EQ(people.line(), "unknown\t/Vistane/Events\torg.vistane.Core1\tEvent\ts\n");
}

TEST_F(Command, WatchingEndsWithTheBus)
{
    QProcess bus;
    bus.start("dbus-daemon", {"--session", "--nofork", "--print-address"});
    ASSERT_TRUE(QTest::qWaitFor([&] { return bus.canReadLine(); }, 10000));
    environment.insert("DBUS_SESSION_BUS_ADDRESS", bus.readLine().trimmed());
    Watching watching(environment, {"watch"});
    bus.kill();
    bus.waitForFinished();
    ASSERT_TRUE(watching.waitForFinished(10000));
    EXPECT_EQ(watching.exitCode(), 4);
}

TEST(StandIn, ItsTimeStopsWhereTheStoresNumbersEnd)
{
    const TestStore store(R"({"figures": {"LastUpdateTime": 0}})");
    StandInService service({.stepMs = 0, .clock = [] { return std::time_t(4'000'000'000); }},
                           [](auto&, auto&) {});
    service.handleEvent(Vt_Event(NR_Constants::EVENT_INITIATE_MANUAL_REFRESH));
    const auto updated = [] { return getIntSetting(GROUP_DCD, "RuntimeValues.LastUpdateTime"); };
    EXPECT_TRUE(QTest::qWaitFor([&] { return updated() == 2147483647; })) << updated();
}

// What lint says, its lines joined by "^", of a shipped pack in which some values are others: "key=new value/key that
// is taken away".
std::string lint(const std::string& packName, const std::string& edits)
{
    auto pack = QString::fromStdString(contentOf(SOURCE_DIR "/share/packs/" + packName));
    for (const QString& edit : QString::fromStdString(edits).split('/', Qt::SkipEmptyParts)) {
        const QString key = edit.section('=', 0, 0), value = edit.section('=', 1);
        const QRegularExpression setting("\"" + QRegularExpression::escape(key) + "\": (\".*\"|\\w+)");
        EXPECT_TRUE(pack.contains(setting)) << edits;
        pack.replace(setting, value.isEmpty() ? "\"unused\": 0" : '"' + key + "\": " + value);
    }
    const Vistanectl::Result result = Vistanectl(pack.toUtf8()).run({"lint"});
    EXPECT_EQ(result.exit, result.out.empty() ? 0 : 1);
    return QString::fromStdString(result.out).replace('\t', ' ').trimmed().replace('\n', '^').toStdString();
}

TEST(Lint, NamesEveryFaultAndNothingElse)
{
    // Edits, and what lint says. Only entries on the screen need their texts; of a shared one, any of its readers.
    for (const auto& [edits, faults] : table<2>(R"(
|
SetupHeadlines.ChildIDs=" Details,,Detials, details ,"|VtCore.Menu.SetupHeadlines.ChildIDs names "Detials", which is no entry^VtCore.Menu.SetupHeadlines.ChildIDs names "details", which is no entry
ConfigureHeadlines.ChildIDs="Scrolling, SetupHeadlines"/SetupHeadlines.visible|VtCore.Menu.ConfigureHeadlines.ChildIDs names "SetupHeadlines", which leads back to it
SetupHeadlines.ChildIDs=" "|VtCore.Menu.SetupHeadlines.ChildIDs is empty
SetupHeadlines.ChildIDs="HowToUse"/HowToUse.visible=false|VtCore.Menu.SetupHeadlines.ChildIDs names no entry that is shown
ConfigureHeadlines.visible=false/Scrolling.title/Download.HomeLabel|VtCore.Menu.Download.HomeLabel is missing
HowToUse.title=""/HowToUse.visible/AddNewChannelURL|VtCore.Menu.HowToUse.visible is missing^VtCore.Menu.HowToUse.title is empty^VtNewsReader.UI.AddNewChannelURL is missing
ManRefresh.Instruction.Retry|VtCore.Menu.ManRefresh.Instruction.Retry is missing
ManRefresh.Instruction.Retry/Details.visible=false|
ManRefresh.Instruction.Retry/ManualRefresh=false/instruction=""|
Details.visible="true"|VtCore.Menu.Details.visible is of type string, not bool
DownloadOption=3/ScrollingRate=4/EnabledMode="HIDDEN_MODE"|VtNewsReader.UI.ScrollingRate is "4", not one of 0, 1, 2, 3^VtCore.Service.DownloadOption is "3", not one of 0, 1, 2
ManRefresh.Instruction.DownloadSuccessed="%2 stories, %5 KB"|
ManRefresh.Instruction.DownloadSuccessed="%1 stories, %1 KB, 100%"|VtCore.Menu.ManRefresh.Instruction.DownloadSuccessed does not have two placeholders, such as %1 and %2
)")) {
        for (const char* pack : {"en.json", "ar.json"})
            EXPECT_EQ(lint(pack, edits), faults) << pack << edits;
    }
}

// Of a whole pack, without a table of what is looked at: all settings of another type; and those that make up the menu,
// without the others.
} // namespace
