#include "SettingHelper.h"

#include "CoreStore.h"
#include "LogCapture.h"
#include "Table.h"
#include "TestStore.h"
#include "Text.h"

#include <gtest/gtest.h>

#include <climits>
#include <regex>

namespace {

using namespace std::string_literals;

// The lines of the log, each without what it begins with and ended by "; ".
std::string said(const LogCapture& log)
{
    static const std::regex line(R"(\(SettingHelper:\d+\)\[~~~~vistane~~~~\](.*)\n)");
    return std::regex_replace(log.text(), line, "$1; ");
}

TEST(SettingHelper, LogsEachFailureAndChangesNothing)
{
    const TestStore store;
    const char refused[] = // "#" for the group that is not found
        "get int setting failed for A.b#set int -7 failed#get bool setting failed for A.b#"
        "set bool setting failed for A.b#get string setting failed for A.b#set string setting failed for A.b#";
    const char failed[] =
        "get int setting failed for VtCore.Menu.A.b: 1; set -7 setting failed for VtCore.Menu.A.b: 3; "
        "get bool setting failed for VtCore.Menu.A.b: 1; set bool 1 setting failed for VtCore.Menu.A.b: 3; "
        "get string setting failed for VtCore.Menu.A.b: 1; set string tëxt failed for VtCore.Menu.A.b: 3; ";
    for (const int group : {12, 13, INT_MAX, 5}) {
        if (group == 5)
            CoreStore::use("/dev/null/core.db"); // can't be a file, so every write fails
        SettingValue value = 5;
        CoreStore::instance().write(group, "A.b", value); // must neither come out nor change
        const LogCapture log;
        EXPECT_EQ(getIntSetting(group, "A.b"), 0);
        setIntSetting(group, "A.b", -7);
        EXPECT_FALSE(getBoolSetting(group, "A.b"));
        setBoolSetting(group, "A.b", true);
        EXPECT_EQ(getStringSetting(group, "A.b"), "");
        setStringSetting(group, "A.b", "tëxt");
        const std::regex none(": group " + std::to_string(group) + " not found; ");
        EXPECT_EQ(std::regex_replace(said(log), none, "#"), group == 5 ? failed : refused);
        CoreStore::instance().read(group, "A.b", value);
        EXPECT_EQ(value, SettingValue(5));
    }
}

TEST(SettingHelper, ReachesEveryOtherGroup)
{
    TestStore store;
    int group = 0;
    for (const std::string name :
         {"VtCore.ConnectionProfiles", "VtCore.DCD", "VtCore.EngineeringMenu", "VtCore.HttpTransport",
          "VtCore.InitSetting", "VtCore.Menu", "VtCore.Service", "VtCore.Storage", "VtCore.System", "VtCore.UI",
          "VtNewsReader.UI", "", ""}) {
        LogCapture log;
        setIntSetting(group, "int", INT_MIN);
        EXPECT_EQ(getIntSetting(group, "int"), INT_MIN);
        setBoolSetting(group, "bool", true);
        EXPECT_TRUE(getBoolSetting(group, "bool"));
        EXPECT_EQ(getIntSetting(group, "bool"), 0) << "no conversion between types";
        EXPECT_EQ(said(log), "get int setting failed for " + name + ".bool: 2; ");
        EXPECT_EQ(settingGroupOf(name + ".a"), name.empty() ? 13 : group);
        group = group == 11 ? -1 : group + 1;
    }
}

TEST(SettingHelper, KeepsTheFirstLineOfATextAndRefusesWhatIsNotUtf8)
{
    TestStore store;
    // Each character is cut to its low 16 bits, even to nothing.
    const std::pair<std::string, std::string> texts[] = {{"one\ntwo", "one"},      {"\ntwo", ""},
                                                         {"a\0b"s, "a\0b"s},       {"أخبار", "أخبار"},
                                                         {"\U0001F600", "\uF600"}, {"x\U00010000y", "x\0y"s},
                                                         {"valid\n\xff", "valid"}};
    const LogCapture log;
    for (const auto& [written, read] : texts) {
        setStringSetting(5, "t", written);
        EXPECT_EQ(getStringSetting(5, "t"), read);
    }
    setStringSetting(5, "t", "ab\xc0\xaf"); // refused
    EXPECT_EQ(said(log), "set string failed for VtCore.Menu.t: invalid string; ");
    EXPECT_EQ(getStringSetting(5, "t"), "valid");
    setStringSetting(5, "t", "\U0001D83D"); // leaves half of a surrogate pair
    EXPECT_TRUE(Text::isUtf8(getStringSetting(5, "t")));
}

TEST(SettingHelper, SplitsQualifiedNames)
{
    // A step without a "." keeps the text whole.
    for (const auto& [name, expectedGroup, expectedKey] : table<3>(
             "vtcore.connectionprofile.a.b|0|a.b;VtCore.Menu.Details.label|5|Details.label;VtCore.Menu|5|Menu;"
             "VtCore.Menu.|5|;VTCORE.Services|6|Services;Menu|13|untouched;x.VtCore.Menu|13|untouched;"
             "VtCore.|13|untouched;\xd6tCore.Menu|13|untouched")) {
        int group = -1;
        std::string key = "untouched";
        splitSettingKey(name, group, key);
        EXPECT_EQ(std::to_string(group) + key, expectedGroup + expectedKey) << name;
    }
}

} // namespace
