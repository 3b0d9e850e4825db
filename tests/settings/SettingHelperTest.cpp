#include "SettingHelper.h"

#include "CoreStore.h"
#include "LogCapture.h"
#include "TestStore.h"

#include <gtest/gtest.h>

#include <QString>

#include <climits>
#include <set>
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
    for (int group : {12, INT_MAX}) {
        const std::string end = "group " + std::to_string(group) + " not found";
        LogCapture log;
        callAll(group, "A.b");
        EXPECT_EQ(log.lines(), (Lines{prefix + "get int setting failed for A.b: " + end,
                                      prefix + "set int -7 failed: " + end,
                                      prefix + "get bool setting failed for A.b: " + end,
                                      prefix + "set bool setting failed for A.b: " + end,
                                      prefix + "get string setting failed for A.b: " + end,
                                      prefix + "set string setting failed for A.b: " + end}));
        std::set<std::string> sources;
        std::istringstream stream(log.text());
        for (std::string line; std::getline(stream, line);)
            sources.insert(line.substr(0, line.find(')')));
        EXPECT_EQ(sources.size(), 6u) << "each accessor logs a line of its own";
    }
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
    const std::pair<int, const char*> groups[] = {
        {0, "VtCore.ConnectionProfiles"},
        {1, "VtCore.DCD"},
        {2, "VtCore.EngineeringMenu"},
        {3, "VtCore.HttpTransport"},
        {4, "VtCore.InitSetting"},
        {5, "VtCore.Menu"},
        {6, "VtCore.Service"},
        {7, "VtCore.Storage"},
        {8, "VtCore.System"},
        {9, "VtCore.UI"},
        {10, "VtNewsReader.UI"},
        {11, ""},
        {-1, ""},
    };
    for (const auto& [group, name] : groups) {
        LogCapture log;
        setIntSetting(group, "int", INT_MIN);
        EXPECT_EQ(getIntSetting(group, "int"), INT_MIN);
        setBoolSetting(group, "bool", true);
        EXPECT_TRUE(getBoolSetting(group, "bool"));
        EXPECT_EQ(getIntSetting(group, "bool"), 0) << "no conversion between types";
        EXPECT_EQ(log.lines(), Lines{prefix + "get int setting failed for " + name + ".bool: 2"});
    }
}

TEST(SettingHelper, KeepsTheFirstLineOfAText)
{
    TestStore store;
    const std::pair<std::string, std::string> texts[] = {
        {"one\ntwo", "one"},       {"one\n", "one"},   {"\ntwo", ""},    {"", ""},
        {"a\0b"s, "a\0b"s},        {"أخبار", "أخبار"}, {"新闻", "新闻"}, {"e\u0301", "e\u0301"},
        {"\U0001F600", "\uF600"},  // cut to its low 16 bits,
        {"x\U00010000y", "x\0y"s}, // even to nothing
        {"valid\n\xff", "valid"},
    };
    for (const auto& [written, read] : texts) {
        setStringSetting(5, "t", "before");
        LogCapture log;
        setStringSetting(5, "t", written);
        EXPECT_EQ(getStringSetting(5, "t"), read);
        EXPECT_EQ(log.text(), "");
    }
    setStringSetting(5, "t", "\U0001D83D"); // leaves half of a surrogate pair
    const std::string half = getStringSetting(5, "t");
    EXPECT_EQ(QString::fromStdString(half).toStdString(), half) << "still UTF-8";
}

TEST(SettingHelper, RefusesTextThatIsNotUtf8)
{
    TestStore store;
    setStringSetting(5, "t", "before");
    for (const char* bad : {"\xff", "ab\xc0\xaf", "\xed\xa0\x80", "\xe2\x82", "\x80", "\xf4\x90\x80\x80"}) {
        LogCapture log;
        setStringSetting(5, "t", bad);
        EXPECT_EQ(log.lines(), Lines{prefix + "set string failed for VtCore.Menu.t: invalid string"});
        EXPECT_EQ(getStringSetting(5, "t"), "before");
    }
}

TEST(SettingHelper, SplitsQualifiedNames)
{
    const std::tuple<const char*, int, const char*> names[] = {
        {"VtCore.ConnectionProfiles.a", 0, "a"},
        {"vtcore.connectionprofile.a.b", 0, "a.b"},
        {"VtCore.DCD.a", 1, "a"},
        {"VtCore.EngineeringMenu.a", 2, "a"},
        {"VtCore.HttpTransport.a", 3, "a"},
        {"VtCore.InitSetting.a", 4, "a"},
        {"VtCore.Menu.Details.label", 5, "Details.label"},
        {"VtCore.Menu", 5, "Menu"}, // a step without a "." keeps the text whole
        {"VtCore.Menu.", 5, ""},
        {"vtcore.service.DownloadOption", 6, "DownloadOption"},
        {"VtCore.Services", 6, "Services"},
        {"VTCORE.STORAGE.a", 7, "a"},
        {"VtCore.System.a", 8, "a"},
        {"VtCore.UI.a", 9, "a"},
        {"VtNewsReader.UI.ScrollingRate", 10, "ScrollingRate"},
        {"Menu", 13, "untouched"},
        {"", 13, "untouched"},
        {"x.VtCore.Menu", 13, "untouched"},
        {"VtCore.", 13, "untouched"},
        {"\xd6tCore.Menu", 13, "untouched"},
    };
    for (const auto& [name, expectedGroup, expectedKey] : names) {
        EXPECT_EQ(settingGroupOf(name), expectedGroup) << name;
        int group = -1;
        std::string key = "untouched";
        splitSettingKey(name, group, key);
        EXPECT_EQ(group, expectedGroup) << name;
        EXPECT_EQ(key, expectedKey) << name;
    }
}

} // namespace
