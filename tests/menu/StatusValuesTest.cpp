#include "StatusValues.h"
#include "ProfileChoice.h"

#include "CoreStore.h"
#include "MenuStore.h"
#include "NR_Constants.h"
#include "SettingHelper.h"
#include "Sqlite.h"
#include "Vt_Event.h"

#include <sqlite3.h>

#include <array>
#include <climits>
#include <cstdint>
#include <optional>
#include <tuple>

namespace {

class StatusValuesTest : public testing::Test
{
protected:
    StatusValuesTest() : mStore(MenuStore::KEYS)
    {
        StatusValues::state() = {};
        setTimeZone("UTC");
    }

    static void setTimeZone(const char* zone) { qputenv("TZ", zone); }

    MenuStore mStore;
};

TEST_F(StatusValuesTest, WritesLocalTime)
{
    setStringSetting(GROUP_DCD, "RuntimeValues.LastUpdateResult", "");
    const std::tuple<int, const char*, const char*> times[] = {
        {1204898709, "UTC", "2008-03-07 14:05:09\n"},
        {1204898709, "EST+5", "2008-03-07 09:05:09\n"}, // a zone that was changed meanwhile holds
        {INT_MIN, "UTC", "1901-12-13 20:45:52\n"},
        {INT_MAX, "UTC", "2038-01-19 03:14:07\n"},
    };
    for (const auto& [seconds, zone, expected] : times) {
        setTimeZone(zone);
        setIntSetting(GROUP_DCD, "RuntimeValues.LastUpdateTime", seconds);
        EXPECT_EQ(StatusValues::lastConnection(), expected);
    }
}

TEST_F(StatusValuesTest, TellsTheLastConnection)
{
    setIntSetting(GROUP_DCD, "RuntimeValues.LastUpdateTime", 1204898709);
    const std::pair<const char*, const char*> cases[] = {
        {"SUCCESS", "Details.SuccessLabel"},
        {"FAILED", "Details.FailedLabel"},
        {"CANCELLED", "Details.CancelledLabel"},
        {"WRONG_VERSION", "Details.WrongVersionLabel"},
        {"success", ""},
        {"SUCCESS ", ""},
        {"", ""},
    };
    for (const auto& [result, label] : cases) {
        setStringSetting(GROUP_DCD, "RuntimeValues.LastUpdateResult", result);
        EXPECT_EQ(StatusValues::lastConnection(), std::string("2008-03-07 14:05:09\n") + label);
    }
    const std::string longLabel(300, 'x');
    setStringSetting(GROUP_DCD, "RuntimeValues.LastUpdateResult", "FAILED");
    setStringSetting(GROUP_MENU, "Details.FailedLabel", longLabel);
    EXPECT_EQ(StatusValues::lastConnection(), "2008-03-07 14:05:09\n" + longLabel);
}

TEST_F(StatusValuesTest, ListsTheChannels)
{
    TestStore channels(R"({"settings": {"VtCore.Menu": {"Details.ChannelsLabel": "قنوات"}},
                           "channels": [{"id": "a", "title": "أخبار"}, {"id": "unfetched"},
                                        {"id": "b", "title": "新闻"}, {"id": "c", "title": "e\u0301"}]})");
    EXPECT_EQ(StatusValues::subscription(), "3 قنوات\nأخبار\n新闻\ne\u0301\n");
    OperatorPack many;
    many.channels.emplace();
    std::string names;
    for (int i = 0; i < 1000; ++i) {
        const std::string id = std::to_string(i);
        names += id + '\n';
        many.channels->push_back({id, id});
    }
    CoreStore::instance().installPack(many);
    EXPECT_EQ(StatusValues::subscription(), "1000 \n" + names) << "the pack's label is gone";
}

TEST_F(StatusValuesTest, KeepsEachNameOnOneLine)
{
    // The second character becomes a line feed when it is cut to its low 16 bits.
    TestStore store(R"({"channels": [{"id": "a", "title": "A\ud840\udc0aB"}],
                        "profiles": [{"id": "p", "name": "P\ud840\udc0aQ"}, {"id": "r", "name": "R"}]})");
    EXPECT_EQ(StatusValues::subscription(), "1 \nA B\n");
    EXPECT_EQ(ProfileChoice::list(), "P Q\nR\n");
    CoreStore::instance().setCurrentProfile("p");
    EXPECT_EQ(ProfileChoice::current(), "P Q");
}

TEST_F(StatusValuesTest, ShowsNothingOfAStoreThatIsBroken)
{
    TestStore store(R"({"channels": [{"id": "a", "title": "A"}], "profiles": [{"id": "p", "name": "P"}]})");
    ProfileChoice::list();
    Sqlite::Connection file;
    ASSERT_EQ(file.open(store.path(), SQLITE_OPEN_READWRITE), SQLITE_OK);
    ASSERT_EQ(file.execute("DROP TABLE channel; DROP TABLE profile"), SQLITE_OK);
    EXPECT_EQ(StatusValues::subscription(), "");
    EXPECT_EQ(ProfileChoice::list(), "");
    EXPECT_EQ(ProfileChoice::current(), "");
}

TEST_F(StatusValuesTest, NamesTheNetworks)
{
    CoreStore& store = CoreStore::instance();
    store.setFact("home_network", "وطن");
    store.setFact("current_network", "Else");
    EXPECT_EQ(StatusValues::homeNetwork(), "وطن");
    EXPECT_EQ(StatusValues::currentNetwork(), "Else");
    store.setFact("home_network", "");
    store.setFact("current_network", "");
    EXPECT_EQ(StatusValues::homeNetwork() + StatusValues::currentNetwork(), "") << "can't tell";
}

TEST_F(StatusValuesTest, TellsTheDownloadMode)
{
    const std::string options[] = {"Can not get Download Mode", "Download.AlwaysLabel", "Download.HomeLabel",
                                   "Download.NeverLabel", "Can not get Download Mode"};
    for (int i = 0; i < 5; ++i) {
        setIntSetting(GROUP_SERVICE, "DownloadOption", i - 1);
        EXPECT_EQ(StatusValues::downloadMode(), options[i]);
    }
    TestStore empty;
    EXPECT_EQ(StatusValues::downloadMode(), "Can not get Download Mode");
}

TEST_F(StatusValuesTest, TellsWhetherThePhoneRoams)
{
    // Roaming, friendly and the text; an empty fact is a query that fails.
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"0", "false", "Roaming.NonRoamingLabel"}, {"0", "true", "Roaming.NonRoamingLabel"},
        {"0", "", "Roaming.NonRoamingLabel"},      {"", "false", "Roaming.NonRoamingLabel"},
        {"", "", "Roaming.NonRoamingLabel"},       {"1", "true", "Roaming.NonRoamingLabel"},
        {"-1", "false", "Roaming.RoamingLabel"},   {"1", "", "Can not get Roaming status"},
    };
    for (const auto& [roaming, friendly, text] : cases) {
        CoreStore::instance().setFact("roaming", roaming);
        CoreStore::instance().setFact("friendly", friendly);
        EXPECT_EQ(StatusValues::roamingStatus(), text) << roaming << "/" << friendly;
    }
}

TEST_F(StatusValuesTest, TellsTheActivity)
{
    const std::tuple<int, const char*, const char*> cases[] = {
        {0, "1", "Details.IdleLabel"},
        {1, "0", "Details.IdleLabel"},
        {1, "1", "Details.InactiveLabel"},
        {2, "0", "Details.NeverLabel"},
    };
    for (const auto& [option, roaming, text] : cases) {
        setIntSetting(GROUP_SERVICE, "DownloadOption", option);
        CoreStore::instance().setFact("roaming", roaming);
        EXPECT_EQ(StatusValues::activity(), text);
        StatusValues::follow(Vt_Event(NR_Constants::EVENT_NOTIFY_NETWORK_UPDATE_STARTED));
        EXPECT_EQ(StatusValues::activity(), "Details.DownloadingLabel");
        StatusValues::follow(Vt_Event(NR_Constants::EVENT_NOTIFY_NETWORK_UPDATE_COMPLETED));
        EXPECT_EQ(StatusValues::activity(), text);
    }
}

TEST_F(StatusValuesTest, FollowsTheStorageEvents)
{
    using Map = Vt_Event::Parameters;
    const std::string storage = NR_Constants::EVENT_NOTIFY_STORAGE_STATUS, huge(10000, 'x');
    // The event, and the used, free and total memory then shown.
    const std::tuple<std::string, std::optional<Map>, std::array<std::string, 3>> events[] = {
        {"UNKNOWN", Map{{"free", "1"}}, {"0 K", "680 K", "680 K"}},
        {NR_Constants::EVENT_NAVIGATE, Map{{"free", "1"}}, {"0 K", "680 K", "680 K"}},
        {storage, std::nullopt, {"0 K", "680 K", "680 K"}},
        {storage, Map{}, {"0 K", "680 K", "680 K"}},
        {storage, Map{{"free", "9 %s"}}, {"0 K", "9 %s", "680 K"}},
        {storage, Map{{"Free", "1"}, {"other", "2"}, {"", "3"}}, {"0 K", "9 %s", "680 K"}},
        {storage, Map{{"total", huge}, {"free", ""}, {"used", "7 K"}}, {"7 K", "", huge}},
    };
    for (const auto& [name, map, texts] : events) {
        StatusValues::follow(Vt_Event(name, 1, map ? std::make_shared<Map>(*map) : nullptr));
        EXPECT_EQ(StatusValues::memory(), "Details.ContentMemoryLabel " + texts[0] +
                                              "\nDetails.FreeMemoryLabel " + texts[1] +
                                              "\nDetails.TotalMemoryLabel " + texts[2] + "\n");
    }
    EXPECT_FALSE(StatusValues::state().updateInProgress);
}

TEST_F(StatusValuesTest, ListsTheProfiles)
{
    TestStore profiles(
        R"({"profiles": [{"id": "p1", "name": "أ"}, {"id": "p2", "name": "Two", "selectable": false},
                                        {"id": "p3", "name": "Three"}]})");
    EXPECT_EQ(ProfileChoice::current(), "أ");
    EXPECT_EQ(ProfileChoice::list(), "أ\nDISABLE:Two\nThree\n");
    CoreStore::instance().setCurrentProfile("p2");
    EXPECT_EQ(ProfileChoice::current(), "Two");
    TestStore none;
    EXPECT_EQ(ProfileChoice::list(), "");
}

TEST_F(StatusValuesTest, ShowsNothingForMissingLabels)
{
    TestStore empty(R"({"channels": [{"id": "a", "title": "A"}], "device": {"roaming": 0}})");
    EXPECT_EQ(StatusValues::lastConnection(), "1970-01-01 00:00:00\n");
    EXPECT_EQ(StatusValues::subscription(), "1 \nA\n");
    EXPECT_EQ(StatusValues::roamingStatus(), "");
    EXPECT_EQ(StatusValues::memory(), " 0 K\n 680 K\n 680 K\n");
}

} // namespace
