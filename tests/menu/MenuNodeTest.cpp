#include "MenuNode.h"

#include "ApiProvider.h"
#include "LogCapture.h"
#include "MenuStore.h"
#include "SettingHelper.h"
#include "StatusValues.h"

#include <tuple>

namespace {

using namespace std::string_literals;

// The names of the node's children after a fresh load: "Scrolling,Download". Each label is its own key.
std::string listed(MenuNode* node)
{
    node->clearChildren();
    node->loadChildren();
    std::string names;
    for (const Entry* child : node->mChildren)
        names += (names.empty() ? "" : ",") + child->label().substr(0, child->label().find('.'));
    return names;
}

TEST(MenuNode, LoadsItsChildrenFromTheStore)
{
    MenuStore store(MenuStore::KEYS);
    setBoolSetting(GROUP_MENU, "HowToUse.visible", false);
    // The root's child list, its sub-menu's, and what the root then lists.
    const std::tuple<std::string, const char*, const char*> menus[] = {
        {" CustomHomeMode , Scrolling ,Download  ", "", "CustomHomeMode,Scrolling,Download"},
        {"Scrolling,Nothing,,Download,Scrolling,", "", "Scrolling,Download,Scrolling"},
        {"scrolling,\tScrolling,Scroll ing,   ", "", ""},
        {"", "", ""},
        {std::string(5000, 'x') + ",Download", "", "Download"},
        {"HowToUse,CustomHomeMode", "", "CustomHomeMode"}, // one is hidden
        {"Scrolling,Download\0,Profile"s, "", "Scrolling,Download"},

        {"ConfigureHeadlines,Download", "Scrolling,Download", "ConfigureHeadlines,Download"},
        {"ConfigureHeadlines,Download", "HowToUse,Scrolling", "Scrolling,Download"},
        {"ConfigureHeadlines", "HowToUse", "ConfigureHeadlines"},
        {"ConfigureHeadlines", "Details", "Details"},

        {"SetupHeadlines,Scrolling", "", "SetupHeadlines,Scrolling"}, // menus that lead back to themselves
        {"ConfigureHeadlines", "SetupHeadlines", "SetupHeadlines"},
        {"ConfigureHeadlines", "ConfigureHeadlines", "ConfigureHeadlines"},
        {"ConfigureHeadlines,Scrolling", "SetupHeadlines,Download", "ConfigureHeadlines,Scrolling"},
    };
    for (const auto& [setup, configure, expected] : menus) {
        setStringSetting(GROUP_MENU, "SetupHeadlines.ChildIDs", setup);
        setStringSetting(GROUP_MENU, "ConfigureHeadlines.ChildIDs", configure);
        EXPECT_EQ(listed(nodeOf("SetupHeadlines")), expected) << setup << " / " << configure;
        listed(nodeOf("ConfigureHeadlines")); // comes to an end from there, too
    }
}

// Or two lists of some hundred names would take as many squared.
TEST(MenuNode, LoadsASubMenuOnceHoweverOftenAListNamesIt)
{
    MenuStore store(MenuStore::KEYS);
    const LogCapture log;
    setStringSetting(GROUP_MENU, "SetupHeadlines.ChildIDs", "ConfigureHeadlines,Download,ConfigureHeadlines");
    setStringSetting(GROUP_MENU, "ConfigureHeadlines.ChildIDs", "Scrolling,Download,Profile");
    setIntSetting(GROUP_MENU, "Profile.visible", 1); // of the wrong type, which is logged when it is read
    EXPECT_EQ(listed(nodeOf("SetupHeadlines")), "ConfigureHeadlines,Download,ConfigureHeadlines");
    EXPECT_EQ(log.lines().size(), 1u) << log.text();
}

TEST(MenuNode, LeavesOutAHiddenSubMenuUnloaded)
{
    MenuStore store(MenuStore::KEYS);
    setStringSetting(GROUP_MENU, "SetupHeadlines.ChildIDs", "ConfigureHeadlines,Download");
    setStringSetting(GROUP_MENU, "ConfigureHeadlines.ChildIDs", "Scrolling");
    setBoolSetting(GROUP_MENU, "ConfigureHeadlines.visible", false);
    nodeOf("ConfigureHeadlines")->clearChildren();
    EXPECT_EQ(listed(nodeOf("SetupHeadlines")), "Download");
    EXPECT_TRUE(nodeOf("ConfigureHeadlines")->mChildren.empty());
    nodeOf("SetupHeadlines")->loadChildren();
    EXPECT_EQ(nodeOf("SetupHeadlines")->mChildren.size(), 2) << "loading alone appends";
}

TEST(DetailsNode, ShowsEachFactUnderItsHeading)
{
    MenuStore store(MenuStore::KEYS);
    ApiProvider::instance();
    StatusValues::state() = {};
    setStringSetting(GROUP_MENU, "Details.ChildIDs", "Scrolling");
    CoreStore::instance().setFact("current_network", "Elsewhere");
    setStringSetting(GROUP_DCD, "RuntimeValues.LastUpdateResult", "FAILED");
    MenuNode* node = nodeOf("Details");
    node->clearChildren();
    node->loadChildren();
    std::string page;
    for (const Entry* row : node->mChildren) {
        EXPECT_TRUE(!row->isHidden() && row->isEnabled() && row->hasValue());
        const std::string value = row->valueText();
        page += row->label() + ": " + value.substr(value.find('\n') == 19 ? 20 : 0) + '\n'; // without the date
    }
    EXPECT_EQ(page, "Details.HomeNetworkLabel: Northline\n"
                    "Details.CurrentNetworkLabel: Elsewhere\n"
                    "Details.DownloadOptionLabel: Download.AlwaysLabel\n"
                    "Details.RoamingStatusLabel: Roaming.NonRoamingLabel\n"
                    "Details.CurrentActivityLabel: Details.IdleLabel\n"
                    "Details.LastConnectionLabel: Details.FailedLabel\n"
                    "Details.SubscriptionLabel: 3 Details.ChannelsLabel\nWorld News\nSport\nWeather\n\n"
                    "Details.MemoryLabel: Details.ContentMemoryLabel 0 K\nDetails.FreeMemoryLabel 680 K\n"
                    "Details.TotalMemoryLabel 680 K\n\n");
    EXPECT_NE(node->mDetailsFlag, 0);
}

} // namespace
