#include "SettingHelper.h"

#include "CoreStore.h"
#include "LogCapture.h"
#include "Table.h"
#include "TestStore.h"

#include <gtest/gtest.h>

#include <QString>

#include <climits>
#include <regex>

namespace {

using Lines = std::vector<std::string>;
using namespace std::string_literals;

const std::string prefix = "(SettingHelper:*)[~~~~vistane~~~~]";

// Calls all accessors, which must fail; the lines they log, each without what it begins with and continued by ", ".
std::string failAll(int group)
{
    LogCapture log;
    EXPECT_EQ(getIntSetting(group, "A.b"), 0);
    setIntSetting(group, "A.b", -7);
    EXPECT_FALSE(getBoolSetting(group, "A.b"));
    setBoolSetting(group, "A.b", true);
    EXPECT_EQ(getStringSetting(group, "A.b"), "");
    setStringSetting(group, "A.b", "tëxt");
    std::string lines;
    for (const std::string& line : log.lines())
        lines += line.starts_with(prefix) ? line.substr(prefix.size()) + ", " : "?" + line;
    return lines;
}

TEST(SettingHelper, LogsEachFailure)
{
    {
        TestStore store;
        for (int group : {12, 13, INT_MAX}) {
            SettingValue value;
            CoreStore::instance().write(group, "A.b", 5); // must neither come out nor change
            const std::regex end(": group " + std::to_string(group) + " not found, ");
            EXPECT_EQ(std::regex_replace(failAll(group), end, "; "),
                      "get int setting failed for A.b; set int -7 failed; get bool setting failed for A.b; "
                      "set bool setting failed for A.b; get string setting failed for A.b; "
                      "set string setting failed for A.b; ");
            CoreStore::instance().read(group, "A.b", value);
            EXPECT_EQ(value, SettingValue(5));
        }
    }
    CoreStore::use("/dev/null/core.db"); // can't be a file, so every write fails
    CoreStore::instance();
    EXPECT_EQ(
        failAll(5),
        "get int setting failed for VtCore.Menu.A.b: 1, set -7 setting failed for VtCore.Menu.A.b: 3, "
        "get bool setting failed for VtCore.Menu.A.b: 1, set bool 1 setting failed for VtCore.Menu.A.b: 3, "
        "get string setting failed for VtCore.Menu.A.b: 1, set string tëxt failed for VtCore.Menu.A.b: 3, ");
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
        EXPECT_EQ(log.lines(), Lines{prefix + "get int setting failed for " + name + ".bool: 2"});
        EXPECT_EQ(settingGroupOf(name + ".a"), name.empty() ? 13 : group);
        group = group == 11 ? -1 : group + 1;
    }
}

TEST(SettingHelper, KeepsTheFirstLineOfATextAndRefusesWhatIsNotUtf8)
{
    TestStore store;
    // Each character is cut to its low 16 bits, even to nothing.
    const std::string written[] = {"one\ntwo",   "\ntwo",        "a\0b"s,      "أخبار",
                                   "\U0001F600", "x\U00010000y", "valid\n\xff"};
    const std::string read[] = {"one", "", "a\0b"s, "أخبار", "\uF600", "x\0y"s, "valid"};
    LogCapture log;
    for (size_t i = 0; i < std::size(read); ++i) {
        setStringSetting(5, "t", written[i]);
        EXPECT_EQ(getStringSetting(5, "t"), read[i]);
    }
    setStringSetting(5, "t", "ab\xc0\xaf");
    EXPECT_EQ(log.lines(), Lines{prefix + "set string failed for VtCore.Menu.t: invalid string"});
    EXPECT_EQ(getStringSetting(5, "t"), "valid");
    setStringSetting(5, "t", "\U0001D83D"); // leaves half of a surrogate pair
    const std::string half = getStringSetting(5, "t");
    EXPECT_EQ(QString::fromStdString(half).toStdString(), half) << "still UTF-8";
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
