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

// The lines of each accessor for the key "A.b": of a group that there is not, and of a status of the store.
constexpr const char* failures[][2] = {
    {"get int setting failed for A.b", "get int setting failed for VtCore.Menu.A.b: 1"},
    {"set int -7 failed", "set -7 setting failed for VtCore.Menu.A.b: 3"},
    {"get bool setting failed for A.b", "get bool setting failed for VtCore.Menu.A.b: 1"},
    {"set bool setting failed for A.b", "set bool 1 setting failed for VtCore.Menu.A.b: 3"},
    {"get string setting failed for A.b", "get string setting failed for VtCore.Menu.A.b: 1"},
    {"set string setting failed for A.b", "set string tëxt failed for VtCore.Menu.A.b: 3"},
};

// Calls all accessors, which must fail with that column of the table, each line continued by `end`.
void failAll(int group, int column, const std::string& end)
{
    LogCapture log;
    EXPECT_EQ(getIntSetting(group, "A.b"), 0);
    setIntSetting(group, "A.b", -7);
    EXPECT_FALSE(getBoolSetting(group, "A.b"));
    setBoolSetting(group, "A.b", true);
    EXPECT_EQ(getStringSetting(group, "A.b"), "");
    setStringSetting(group, "A.b", "tëxt");
    Lines lines;
    for (const auto& failure : failures)
        lines.push_back(prefix + failure[column] + end);
    EXPECT_EQ(log.lines(), lines);
}

TEST(SettingHelper, LogsEachFailure)
{
    {
        TestStore store;
        for (int group : {12, 13, INT_MAX}) {
            SettingValue value;
            CoreStore::instance().write(group, "A.b", 5); // must neither come out nor change
            failAll(group, 0, ": group " + std::to_string(group) + " not found");
            CoreStore::instance().read(group, "A.b", value);
            EXPECT_EQ(value, SettingValue(5));
        }
    }
    CoreStore::use("/dev/null/core.db"); // can't be a file, so every write fails
    CoreStore::instance();
    failAll(5, 1, "");
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
