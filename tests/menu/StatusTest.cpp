#include "ApiProvider.h"
#include "ApiRegistry.h"
#include "BusListener.h"
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

#include <sqlite3.h>

namespace {

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
    for (const std::string name : {"Test.b", "Test.a", "Test.c", "test.b"}) {
        const bool isKnown = name == "Test.b";
        called = apis.text(name) + (apis.isHidden(name) ? " hidden " : "");
        ActionEntry entry(name, "label");
        EXPECT_TRUE(!entry.isHidden() && entry.isEnabled() && entry.label() == "label");
        for (entry.mArgMode = 0; entry.mArgMode < 2; ++entry.mArgMode)
            entry.invoke(7 + entry.mArgMode), entry.invoke();
        EXPECT_EQ(called, isKnown ? "text hidden act 8" : "") << name;
    }
    EXPECT_EQ(log.text(), "");
}

TEST(ApiProvider, SendsTheEventOfEachActionAndFollowsTheUpdates)
{
    ApiProvider::instance();
    BusListener bus(BusSignals::event);
    // What is sent: name, value, map, whether there is one, text, mode. MEMORY_API is a text, no action.
    const std::pair<const char*, std::string> actions[] = {
        {"READ_STORY_API", "EVENT_NAVIGATE|7||false||1"},
        {"NEXT_CHANNEL", "EVENT_NAVIGATE|6||false||1"},
        {"PREV_CHANNEL", "EVENT_NAVIGATE|5||false||1"},
        {"HOW_TO_USE_API", "EVENT_SHOW_HELP_EXCERPT_PAGE|0||false|wac|0"}};
    for (const char* name : {"READ_MORE_API", "SET_API", "MEMORY_API", "next_channel"})
        ApiRegistry::instance()->act(name); // sends nothing
    for (const auto& [name, event] : actions) {
        ApiRegistry::instance()->act(name);
        EXPECT_EQ(bus.take(), std::vector{event}) << name;
    }
    StatusValues::state() = {};
    for (const bool isOn : {true, false}) {
        const std::string& event = isOn ? NR_Constants::EVENT_NOTIFY_NETWORK_UPDATE_STARTED
                                        : NR_Constants::EVENT_NOTIFY_NETWORK_UPDATE_COMPLETED;
        Vt_EventAndStatusFacade::instance()->sendEvent(Vt_Event(event), 0);
        EXPECT_TRUE(QTest::qWaitFor([&] { return StatusValues::state().updateInProgress == isOn; })) << event;
    }
}

TEST(MemoryFile, ReadsTheLinesThereAre)
{
    const QTemporaryDir dir;
    const std::string path = dir.filePath("vtmem").toStdString();
    // The lines, each ended by a comma, and the texts then: total, free, used.
    for (auto [lines, texts] :
         table<2>("1 M,2 M,3 M|1 M,2 M,3 M;1 M,2 M,|1 M,2 M,0 K;|680 K,680 K,0 K;,,,|,,;1,2,3,4,|1,2,3")) {
        std::ranges::replace(lines, ',', '\n');
        PrivateFile::write(path.c_str(), lines);
        StatusValues::State state;
        MemoryFile::load(path.c_str(), state);
        EXPECT_EQ(state.totalMemoryText + ',' + state.freeMemoryText + ',' + state.usedMemoryText, texts);
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
1|-1|false|Roaming|Home|Inactive;1|1|||Home|Inactive;3|0|false|NonRoaming||Inactive;2|0|false|NonRoaming|Never|Never)")) {
        SCOPED_TRACE(option + "/" + roaming);
        setIntSetting(GROUP_SERVICE, "DownloadOption", std::stoi(option));
        CoreStore::instance().setFact("roaming", roaming);
        CoreStore::instance().setFact("friendly", friendly);
        EXPECT_EQ(StatusValues::roamingStatus(),
                  status.empty() ? "Can not get Roaming status" : "Roaming." + status + "Label");
        EXPECT_EQ(StatusValues::downloadMode(), mode.empty() ? unknown : "Download." + mode + "Label");
        EXPECT_EQ(StatusValues::activity(), "Details." + activity + "Label");
    }
    StatusValues::state().updateInProgress = true;
    EXPECT_EQ(StatusValues::activity(), "Details.DownloadingLabel") << "which is never, but for now";
    TestStore empty;
    EXPECT_EQ(StatusValues::downloadMode(), unknown);
}

TEST(StatusValues, FollowsTheStorageEvents)
{
    MenuStore menu(MenuStore::KEYS);
    const std::string storage = NR_Constants::EVENT_NOTIFY_STORAGE_STATUS, huge(10000, 'x');
    const std::pair<std::string, Vt_Event::Parameters> events[] = {
        {storage, {{"total", huge}, {"free", "9 %s"}, {"used", ""}}},
        {storage, {{"Free", "1"}, {"", "3"}}},
        {"UNKNOWN", {{"free", "1"}}},
    };
    for (const auto& [name, parameters] : events)
        StatusValues::follow(Vt_Event(name, 1, std::make_shared<Vt_Event::Parameters>(parameters)));
    StatusValues::follow(Vt_Event(storage)); // without any
    EXPECT_EQ(StatusValues::memory(),
              "Details.ContentMemoryLabel \nDetails.FreeMemoryLabel 9 %s\nDetails.TotalMemoryLabel " + huge +
                  '\n');
}

} // namespace
