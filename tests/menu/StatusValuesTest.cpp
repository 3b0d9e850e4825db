#include "StatusValues.h"

#include "CoreStore.h"
#include "MenuStore.h"
#include "NR_Constants.h"
#include "ProfileForm.h"
#include "SettingHelper.h"
#include "Sqlite.h"
#include "Vt_Event.h"

#include <sqlite3.h>

#include <array>
#include <climits>
#include <tuple>

namespace {

class StatusValuesTest : public testing::Test
{
protected:
    StatusValuesTest() : mStore(MenuStore::KEYS) { StatusValues::state() = {}; }

    MenuStore mStore;
};

TEST_F(StatusValuesTest, TellsTheLastConnection)
{
    const std::string longLabel(300, 'x');
    setStringSetting(GROUP_MENU, "Details.WrongVersionLabel", longLabel);
    const std::tuple<int, const char*, const char*, std::string> cases[] = {
        {1204898709, "UTC", "SUCCESS", "2008-03-07 14:05:09\nDetails.SuccessLabel"},
        {1204898709, "EST+5", "FAILED", "2008-03-07 09:05:09\nDetails.FailedLabel"}, // a zone changed meanwhile
        {INT_MIN, "UTC", "CANCELLED", "1901-12-13 20:45:52\nDetails.CancelledLabel"},
        {INT_MAX, "UTC", "WRONG_VERSION", "2038-01-19 03:14:07\n" + longLabel},
        {0, "UTC", "success", "1970-01-01 00:00:00\n"},
    };
    for (const auto& [seconds, zone, result, expected] : cases) {
        qputenv("TZ", zone);
        setIntSetting(GROUP_DCD, "RuntimeValues.LastUpdateTime", seconds);
        setStringSetting(GROUP_DCD, "RuntimeValues.LastUpdateResult", result);
        EXPECT_EQ(StatusValues::lastConnection(), expected);
    }
}

// A character can become a line feed when it is cut to its low 16 bits.
TEST_F(StatusValuesTest, ListsEachNameOnALineOfItsOwn)
{
    TestStore store(R"({"settings": {"VtCore.Menu": {"Details.ChannelsLabel": "قنوات"}},
                        "channels": [{"id": "a", "title": "أخبار"}, {"id": "unfetched"},
                                     {"id": "b", "title": "A\ud840\udc0aB"}, {"id": "c", "title": "e\u0301"}],
                        "profiles": [{"id": "p", "name": "P\ud840\udc0aQ"}, {"id": "r", "name": "أ"}]})");
    EXPECT_EQ(StatusValues::subscription(), "3 قنوات\nأخبار\nA B\ne\u0301\n");
    EXPECT_EQ(ProfileChoice::list(), "P Q\nأ\n");
    EXPECT_EQ(ProfileChoice::current(), "P Q");
    CoreStore::instance().setFact("home_network", "وطن");
    EXPECT_EQ(StatusValues::homeNetwork() + StatusValues::currentNetwork(), "وطن")
        << "where it is, it can't tell";

    Sqlite::Connection file;
    ASSERT_TRUE(file.open(store.path(), SQLITE_OPEN_READWRITE).isOk());
    ASSERT_TRUE(file.execute("DROP TABLE channel; DROP TABLE profile").isOk());
    EXPECT_EQ(StatusValues::subscription(), "");
    EXPECT_EQ(ProfileChoice::list(), "");
    EXPECT_EQ(ProfileChoice::current(), "");
}

TEST_F(StatusValuesTest, TellsWhetherThePhoneRoamsAndDownloads)
{
    const std::string unknownMode = "Can not get Download Mode";
    const struct
    {
        int option;
        const char* roaming; // an empty fact is a query that fails
        const char* friendly;
        std::string roamingStatus, mode, activity;
    } cases[] = {
        {-1, "0", "", "Roaming.NonRoamingLabel", unknownMode, "Details.InactiveLabel"},
        {0, "1", "true", "Roaming.NonRoamingLabel", "Download.AlwaysLabel", "Details.IdleLabel"},
        {1, "", "false", "Roaming.NonRoamingLabel", "Download.HomeLabel", "Details.IdleLabel"},
        {1, "1", "true", "Roaming.NonRoamingLabel", "Download.HomeLabel", "Details.IdleLabel"},
        {1, "-1", "false", "Roaming.RoamingLabel", "Download.HomeLabel", "Details.InactiveLabel"},
        {1, "1", "", "Can not get Roaming status", "Download.HomeLabel", "Details.InactiveLabel"},
        {2, "0", "false", "Roaming.NonRoamingLabel", "Download.NeverLabel", "Details.NeverLabel"},
        {3, "0", "false", "Roaming.NonRoamingLabel", unknownMode, "Details.InactiveLabel"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.option) + "/" + c.roaming);
        setIntSetting(GROUP_SERVICE, "DownloadOption", c.option);
        CoreStore::instance().setFact("roaming", c.roaming);
        CoreStore::instance().setFact("friendly", c.friendly);
        EXPECT_EQ(StatusValues::roamingStatus(), c.roamingStatus);
        EXPECT_EQ(StatusValues::downloadMode(), c.mode);
        EXPECT_EQ(StatusValues::activity(), c.activity);
        StatusValues::state().updateInProgress = true;
        EXPECT_EQ(StatusValues::activity(), "Details.DownloadingLabel");
        StatusValues::state().updateInProgress = false;
    }
    TestStore empty;
    EXPECT_EQ(StatusValues::downloadMode(), unknownMode);
}

TEST_F(StatusValuesTest, FollowsTheStorageEvents)
{
    using Map = Vt_Event::Parameters;
    const std::string storage = NR_Constants::EVENT_NOTIFY_STORAGE_STATUS, huge(10000, 'x');
    StatusValues::follow(Vt_Event(storage));
    // The event, and the used, free and total memory then shown.
    const std::tuple<std::string, Map, std::array<std::string, 3>> events[] = {
        {"UNKNOWN", {{"free", "1"}}, {"0 K", "680 K", "680 K"}},
        {storage, {{"free", "9 %s"}}, {"0 K", "9 %s", "680 K"}},
        {storage, {{"Free", "1"}, {"", "3"}}, {"0 K", "9 %s", "680 K"}},
        {storage, {{"total", huge}, {"free", ""}, {"used", "7 K"}}, {"7 K", "", huge}},
    };
    for (const auto& [name, map, texts] : events) {
        StatusValues::follow(Vt_Event(name, 1, std::make_shared<Map>(map)));
        EXPECT_EQ(StatusValues::memory(), "Details.ContentMemoryLabel " + texts[0] +
                                              "\nDetails.FreeMemoryLabel " + texts[1] +
                                              "\nDetails.TotalMemoryLabel " + texts[2] + "\n");
    }
}

} // namespace
