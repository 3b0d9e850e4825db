#include "ApiProvider.h"
#include "ApiRegistry.h"
#include "BusListener.h"
#include "FileLock.h"
#include "LogCapture.h"
#include "MemoryFile.h"
#include "MenuStore.h"
#include "NR_Constants.h"
#include "PrivateFile.h"
#include "ProfileForm.h"
#include "SettingHelper.h"
#include "Sqlite.h"
#include "StatusValues.h"
#include "Table.h"
#include "Vt_Event.h"
#include "Vt_EventAndStatusFacade.h"

#include <QTest>

#include <regex>
#include <sqlite3.h>

namespace {

using Map = Vt_Event::Parameters;

TEST(ApiRegistry, CallsWhatANameWasGivenLast)
{
    ApiRegistry& apis = *ApiRegistry::instance();
    static std::string called;
    apis.add("Test.b", ApiRegistry::Text([] { return std::string("old"); }));
    apis.add("Test.b", ApiRegistry::Text([] { return std::string("text"); }));
    apis.add("Test.b", ApiRegistry::Action([] { called += "act "; }));
    apis.add("Test.b", ApiRegistry::Setter([](int i) { called += std::to_string(i); }));
    apis.add("Test.b", ApiRegistry::HidePredicate([] { return true; }));
    const LogCapture log;
    for (const std::string name : {"Test.b", "Test.a", "Test.c", "test.b", "", "zzz"}) {
        const bool isKnown = name == "Test.b";
        called.clear();
        EXPECT_EQ(apis.text(name), isKnown ? "text" : "") << name;
        EXPECT_EQ(apis.isHidden(name), isKnown) << name;
        ActionEntry entry(name, "label");
        EXPECT_TRUE(!entry.isHidden() && entry.isEnabled() && entry.label() == "label");
        for (entry.mArgMode = 0; entry.mArgMode < 2; ++entry.mArgMode)
            entry.invoke(7 + entry.mArgMode), entry.invoke();
        EXPECT_EQ(called, isKnown ? "act 8" : "") << name;
    }
    EXPECT_EQ(log.text(), "");
}

TEST(ApiProvider, SendsTheEventOfEachAction)
{
    ApiProvider::instance();
    BusListener bus(BusSignals::event);
    // What is sent: name, value, map, whether there is one, text, mode. MEMORY_API is a text, no action.
    for (const auto& [name, event] : table<2>(R"(
READ_STORY_API|EVENT_NAVIGATE,7,,false,,1;NEXT_CHANNEL|EVENT_NAVIGATE,6,,false,,1
PREV_CHANNEL|EVENT_NAVIGATE,5,,false,,1;HOW_TO_USE_API|EVENT_SHOW_HELP_EXCERPT_PAGE,0,,false,wac,0
READ_MORE_API;SET_API;MEMORY_API;next_channel)")) {
        ApiRegistry::instance()->act(name);
        const std::vector<std::string> sent = bus.take();
        EXPECT_EQ(sent.size(), !event.empty()) << name;
        EXPECT_EQ(sent.empty() ? "" : std::regex_replace(sent[0], std::regex("\\|"), ","), event);
    }
}

TEST(ApiProvider, FollowsTheServiceAndSavesTheMemoryTexts)
{
    const KeptFile kept(MemoryFile::defaultPath);
    PrivateFile::write(MemoryFile::defaultPath, "1 M\n2 M\n3 M\n");
    StatusValues::State& state = StatusValues::state() = {};
    const Vt_Event started(NR_Constants::EVENT_NOTIFY_NETWORK_UPDATE_STARTED);
    const Vt_Event completed(NR_Constants::EVENT_NOTIFY_NETWORK_UPDATE_COMPLETED);
    const Vt_Event storage(NR_Constants::EVENT_NOTIFY_STORAGE_STATUS, 0,
                           std::make_shared<Map>(Map{{"free", "9 M"}}));
    const auto send = [](const Vt_Event& event) { Vt_EventAndStatusFacade::instance()->sendEvent(event, 0); };
    {
        ApiProvider provider;
        EXPECT_EQ(state.totalMemoryText, "1 M");
        send(started);
        EXPECT_TRUE(QTest::qWaitFor([&] { return state.updateInProgress; }));
        send(completed);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !state.updateInProgress; }));
        send(storage);
        EXPECT_TRUE(QTest::qWaitFor([&] { return state.freeMemoryText == "9 M"; }));
    }
    EXPECT_EQ(PrivateFile::read(MemoryFile::defaultPath), "1 M\n9 M\n3 M\n");
    // What comes now must not go to the provider that is gone.
    BusListener bus(BusSignals::event);
    for (const Vt_Event& event : {started, completed, storage})
        send(event);
    EXPECT_EQ(bus.take().size(), 3);
}

TEST(MemoryFile, ReadsTheLinesThereAre)
{
    const QTemporaryDir dir;
    const std::string path = dir.filePath("vtmem").toStdString();
    for (const auto& [text, total, free, used] : table<4>(R"(1 M,2 M,3 M|1 M|2 M|3 M;1 M,2 M,|1 M|2 M|0 K
|680 K|680 K|0 K;,,,|||;1,2,3,4,|1|2|3)")) {
        std::string lines = text;
        std::ranges::replace(lines, ',', '\n');
        PrivateFile::write(path.c_str(), lines);
        StatusValues::State state;
        MemoryFile::load(path.c_str(), state);
        EXPECT_EQ(state.totalMemoryText + '|' + state.freeMemoryText + '|' + state.usedMemoryText,
                  total + '|' + free + '|' + used);
    }
}

TEST(StatusValues, TellsTheLastConnection)
{
    MenuStore menu(MenuStore::KEYS);
    const std::string longLabel(300, 'x');
    setStringSetting(GROUP_MENU, "Details.WrongVersionLabel", longLabel);
    for (const auto& [seconds, zone, result, date, label] : table<5>(R"(
1204898709|UTC|SUCCESS|2008-03-07 14:05:09|Details.SuccessLabel
1204898709|EST+5|FAILED|2008-03-07 09:05:09|Details.FailedLabel
-2147483648|UTC|CANCELLED|1901-12-13 20:45:52|Details.CancelledLabel
0|UTC|success|1970-01-01 00:00:00|
2147483647|UTC|WRONG_VERSION|2038-01-19 03:14:07|)" + longLabel)) {
        qputenv("TZ", zone.c_str()); // which can change meanwhile
        setIntSetting(GROUP_DCD, "RuntimeValues.LastUpdateTime", std::stoi(seconds));
        setStringSetting(GROUP_DCD, "RuntimeValues.LastUpdateResult", result);
        EXPECT_EQ(StatusValues::lastConnection(), date + '\n' + label);
    }
}

// A character can become a line feed when it is cut to its low 16 bits.
TEST(StatusValues, ListsEachNameOnALineOfItsOwn)
{
    TestStore store(R"({"settings": {"VtCore.Menu": {"Details.ChannelsLabel": "قنوات"}},
                        "channels": [{"id": "a", "title": "أخبار"}, {"id": "unfetched"},
                                     {"id": "b", "title": "A\ud840\udc0aB"}, {"id": "c", "title": "e\u0301"}],
                        "profiles": [{"id": "p", "name": "P\ud840\udc0aQ"}, {"id": "r", "name": "أ"}]})");
    EXPECT_EQ(StatusValues::subscription(), "3 قنوات\nأخبار\nA B\ne\u0301\n");
    EXPECT_EQ(ProfileChoice::list() + ProfileChoice::current(), "P Q\nأ\nP Q");
    CoreStore::instance().setFact("home_network", "وطن");
    EXPECT_EQ(StatusValues::homeNetwork() + StatusValues::currentNetwork(), "وطن")
        << "where it is, it can't tell";

    Sqlite::Connection file;
    ASSERT_TRUE(file.open(store.path(), SQLITE_OPEN_READWRITE).isOk());
    ASSERT_TRUE(file.execute("DROP TABLE channel; DROP TABLE profile").isOk());
    EXPECT_EQ(StatusValues::subscription() + ProfileChoice::list() + ProfileChoice::current(), "");
}

TEST(StatusValues, TellsWhetherThePhoneRoamsAndDownloads)
{
    MenuStore menu(MenuStore::KEYS);
    StatusValues::state() = {};
    const std::string unknown = "Can not get Download Mode";
    // The download option, the facts roaming and friendly, of which an empty one is a query that fails, and what is told.
    for (const auto& [option, roaming, friendly, status, mode, activity] : table<6>(R"(
-1|0||NonRoaming||Inactive;0|1|true|NonRoaming|Always|Idle;1||false|NonRoaming|Home|Idle;1|1|true|NonRoaming|Home|Idle
1|-1|false|Roaming|Home|Inactive;1|1|||Home|Inactive;2|0|false|NonRoaming|Never|Never;3|0|false|NonRoaming||Inactive)")) {
        SCOPED_TRACE(option + "/" + roaming);
        setIntSetting(GROUP_SERVICE, "DownloadOption", std::stoi(option));
        CoreStore::instance().setFact("roaming", roaming);
        CoreStore::instance().setFact("friendly", friendly);
        EXPECT_EQ(StatusValues::roamingStatus(),
                  status.empty() ? "Can not get Roaming status" : "Roaming." + status + "Label");
        EXPECT_EQ(StatusValues::downloadMode(), mode.empty() ? unknown : "Download." + mode + "Label");
        EXPECT_EQ(StatusValues::activity(), "Details." + activity + "Label");
        StatusValues::state().updateInProgress = true;
        EXPECT_EQ(StatusValues::activity(), "Details.DownloadingLabel");
        StatusValues::state().updateInProgress = false;
    }
    TestStore empty;
    EXPECT_EQ(StatusValues::downloadMode(), unknown);
}

TEST(StatusValues, FollowsTheStorageEvents)
{
    MenuStore menu(MenuStore::KEYS);
    StatusValues::state() = {};
    const std::string storage = NR_Constants::EVENT_NOTIFY_STORAGE_STATUS, huge(10000, 'x');
    StatusValues::follow(Vt_Event(storage));
    const auto after = [](const std::string& event, const Map& map) {
        StatusValues::follow(Vt_Event(event, 1, std::make_shared<Map>(map)));
        return StatusValues::memory();
    };
    const std::string text = StatusValues::memory(); // of 0 K, 680 K, 680 K
    EXPECT_EQ(after("UNKNOWN", {{"free", "1"}}), text);
    EXPECT_EQ(after(storage, {{"Free", "1"}, {"", "3"}}), text);
    EXPECT_EQ(after(storage, {{"total", huge}, {"free", "9 %s"}, {"used", ""}}),
              "Details.ContentMemoryLabel \nDetails.FreeMemoryLabel 9 %s\nDetails.TotalMemoryLabel " + huge +
                  '\n');
}

} // namespace
