#include "SettingHelper.h"

#include "CoreStore.h"
#include "LogCapture.h"
#include "TestStore.h"

#include <gtest/gtest.h>

#include <QString>

#include <climits>
#include <sstream>
#include <tuple>

namespace {

using Lines = std::vector<std::string>;
using namespace std::string_literals;

const std::string prefix = "(SettingHelper:*)[~~~~vistane~~~~]";

// One failure of each accessor.
void callAll(int group, const char* key)
{
    EXPECT_EQ(getIntSetting(group, key), 0);
    setIntSetting(group, key, -7);
    EXPECT_FALSE(getBoolSetting(group, key));
    setBoolSetting(group, key, true);
    EXPECT_EQ(getStringSetting(group, key), "");
    setStringSetting(group, key, "tëxt");
}

TEST(SettingHelper, RefusesGroupsFromTwelveOn)
{
    TestStore store;
    LogCapture log;
    callAll(12, "A.b");
    EXPECT_EQ(log.lines(), (Lines{prefix + "get int setting failed for A.b: group 12 not found",
                                  prefix + "set int -7 failed: group 12 not found",
                                  prefix + "get bool setting failed for A.b: group 12 not found",
                                  prefix + "set bool setting failed for A.b: group 12 not found",
                                  prefix + "get string setting failed for A.b: group 12 not found",
                                  prefix + "set string setting failed for A.b: group 12 not found"}));
}

TEST(SettingHelper, LogsWhatTheStoreAnswers)
{
    CoreStore::use("/dev/null/core.db"); // can't be a file, so every write fails
    CoreStore::instance();
    LogCapture log;
    callAll(5, "No.such");
    EXPECT_EQ(log.lines(), (Lines{prefix + "get int setting failed for VtCore.Menu.No.such: 1",
                                  prefix + "set -7 setting failed for VtCore.Menu.No.such: 3",
                                  prefix + "get bool setting failed for VtCore.Menu.No.such: 1",
                                  prefix + "set bool 1 setting failed for VtCore.Menu.No.such: 3",
                                  prefix + "get string setting failed for VtCore.Menu.No.such: 1",
                                  prefix + "set string tëxt failed for VtCore.Menu.No.such: 3"}));
}

TEST(SettingHelper, ReachesEveryOtherGroup)
{
    TestStore store;
    std::istringstream names("VtCore.ConnectionProfiles VtCore.DCD VtCore.EngineeringMenu VtCore.HttpTransport "
                             "VtCore.InitSetting VtCore.Menu VtCore.Service VtCore.Storage VtCore.System "
                             "VtCore.UI VtNewsReader.UI");
    for (int group : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, -1}) {
        std::string name; // the last two have none
        names >> name;
        LogCapture log;
        setIntSetting(group, "int", INT_MIN);
        EXPECT_EQ(getIntSetting(group, "int"), INT_MIN);
        setBoolSetting(group, "bool", true);
        EXPECT_TRUE(getBoolSetting(group, "bool"));
        EXPECT_EQ(getIntSetting(group, "bool"), 0) << "no conversion between types";
        EXPECT_EQ(log.lines(), Lines{prefix + "get int setting failed for " + name + ".bool: 2"});
        EXPECT_EQ(settingGroupOf(name + ".a"), name.empty() ? 13 : group);
    }
}

TEST(SettingHelper, KeepsTheFirstLineOfATextAndRefusesWhatIsNotUtf8)
{
    TestStore store;
    // Each character is cut to its low 16 bits, even to nothing.
    const std::pair<std::string, std::string> texts[] = {
        {"one\ntwo", "one"},      {"\ntwo", ""},
        {"a\0b"s, "a\0b"s},       {"أخبار", "أخبار"},
        {"\U0001F600", "\uF600"}, {"x\U00010000y", "x\0y"s},
        {"valid\n\xff", "valid"},
    };
    for (const auto& [written, read] : texts) {
        LogCapture log;
        setStringSetting(5, "t", written);
        EXPECT_EQ(getStringSetting(5, "t"), read);
        EXPECT_EQ(log.text(), "");
    }
    LogCapture log;
    setStringSetting(5, "t", "ab\xc0\xaf");
    EXPECT_EQ(log.lines(), Lines{prefix + "set string failed for VtCore.Menu.t: invalid string"});
    EXPECT_EQ(getStringSetting(5, "t"), "valid");
    setStringSetting(5, "t", "\U0001D83D"); // leaves half of a surrogate pair
    const std::string half = getStringSetting(5, "t");
    EXPECT_EQ(QString::fromStdString(half).toStdString(), half) << "still UTF-8";
}

TEST(SettingHelper, SplitsQualifiedNames)
{
    const std::tuple<const char*, int, const char*> names[] = {
        {"vtcore.connectionprofile.a.b", 0, "a.b"},
        {"VtCore.Menu.Details.label", 5, "Details.label"},
        {"VtCore.Menu", 5, "Menu"}, // a step without a "." keeps the text whole
        {"VtCore.Menu.", 5, ""},
        {"VTCORE.Services", 6, "Services"},
        {"Menu", 13, "untouched"},
        {"x.VtCore.Menu", 13, "untouched"},
        {"VtCore.", 13, "untouched"},
        {"\xd6tCore.Menu", 13, "untouched"},
    };
    for (const auto& [name, expectedGroup, expectedKey] : names) {
        int group = -1;
        std::string key = "untouched";
        splitSettingKey(name, group, key);
        EXPECT_EQ(group, expectedGroup) << name;
        EXPECT_EQ(key, expectedKey) << name;
    }
}

} // namespace
