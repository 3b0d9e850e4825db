#include "MenuNode.h"

#include "LogCapture.h"
#include "MenuStore.h"
#include "SettingHelper.h"

#include <tuple>

namespace {

using namespace std::string_literals;

constexpr const char* entryNames[] = {
    "SetupHeadlines",     "CustomHomeMode", "AddNewChannel", "HowToUse", "ManageMyChannels",
    "ConfigureHeadlines", "Scrolling",      "Download",      "Details",  "Profile"};

std::string nameOf(const Entry* entry)
{
    for (const char* name : entryNames) {
        if (EntryRegistry::instance()->find(name) == entry)
            return name;
    }
    return "?";
}

// The names of the node's children after a fresh load: "Scrolling,Download".
std::string listed(MenuNode* node)
{
    node->clearChildren();
    node->loadChildren();
    std::string names;
    for (const Entry* child : node->mChildren)
        names += (names.empty() ? "" : ",") + nameOf(child);
    return names;
}

TEST(MenuNode, LoadsItsChildrenFromTheStore)
{
    MenuStore store;
    setBoolSetting(GROUP_MENU, "HowToUse.visible", false);
    // The root's child list, its sub-menu's, and what the root then lists.
    const std::tuple<std::string, const char*, const char*> menus[] = {
        {" CustomHomeMode , Scrolling ,Download  ", "", "CustomHomeMode,Scrolling,Download"},
        {"Scrolling,Nothing,,Download,", "", "Scrolling,Download"},
        {"Scrolling,Download,Scrolling", "", "Scrolling,Download,Scrolling"},
        {"scrolling,\tScrolling,Scroll ing", "", ""},
        {"", "", ""},
        {"   ", "", ""},
        {",,", "", ""},
        {"HowToUse,Profile", "", "Profile"}, // one is hidden
        {"Scrolling,Download\0,Profile"s, "", "Scrolling,Download"},

        {"ConfigureHeadlines,Profile", "Scrolling,Download", "ConfigureHeadlines,Profile"},
        {"ConfigureHeadlines,Profile", "Scrolling", "Scrolling,Profile"},
        {"ConfigureHeadlines,Profile", "HowToUse,Scrolling", "Scrolling,Profile"},
        {"ConfigureHeadlines", "HowToUse", "ConfigureHeadlines"},
        {"ConfigureHeadlines", "Details", "Details"},

        {"SetupHeadlines", "", "SetupHeadlines"}, // menus that lead back to themselves
        {"SetupHeadlines,Scrolling", "", "SetupHeadlines,Scrolling"},
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

TEST(MenuNode, AppendsListsOfAnyLengthUntilCleared)
{
    MenuStore store;
    std::string names;
    for (int i = 0; i < 1000; ++i)
        names += "Scrolling , ";
    setStringSetting(GROUP_MENU, "SetupHeadlines.ChildIDs", names + std::string(5000, 'x') + ",Download");
    MenuNode* node = nodeOf("SetupHeadlines");
    node->clearChildren();
    EXPECT_TRUE(node->mChildren.empty());
    node->loadChildren();
    node->loadChildren();
    EXPECT_EQ(node->mChildren.size(), 2002u);
}

// Its only child is null.
class HollowNode : public MenuNode
{
public:
    HollowNode() : MenuNode("Hollow", 0) {}

    bool isHidden() const override { return false; }
    bool isEnabled() const override { return true; }
    std::string title() const override { return {}; }
    std::string label() const override { return {}; }
    void loadChildren() override { mChildren.push_back(nullptr); }
};

TEST(MenuNode, LeavesOutASubMenuWhoseOnlyChildIsNull)
{
    MenuStore store;
    static HollowNode hollow;
    static NodeAdapter adapter(&hollow);
    EntryRegistry::instance()->add("Hollow", &adapter, ENTRY_NODE);
    setStringSetting(GROUP_MENU, "SetupHeadlines.ChildIDs", "Scrolling,Hollow,Download");
    EXPECT_EQ(listed(nodeOf("SetupHeadlines")), "Scrolling,Download");
}

TEST(MenuNode, IsEmptyWithoutAChildList)
{
    TestStore store;
    MenuNode* node = nodeOf("SetupHeadlines");
    LogCapture log;
    EXPECT_EQ(listed(node), "");
    EXPECT_EQ(log.lines(),
              std::vector<std::string>{"(SettingHelper:*)[~~~~vistane~~~~]get string setting failed "
                                       "for VtCore.Menu.SetupHeadlines.ChildIDs: 1"});
}

TEST(DetailsNode, HasEightRowsWhateverTheChildListSays)
{
    MenuStore store(MenuStore::KEYS);
    setStringSetting(GROUP_MENU, "Details.ChildIDs", "Scrolling");
    MenuNode* node = nodeOf("Details");
    node->clearChildren();
    node->loadChildren();
    std::string labels;
    for (const Entry* row : node->mChildren) {
        EXPECT_TRUE(!row->isHidden() && row->isEnabled() && row->hasValue());
        labels += row->label() + ' ';
    }
    EXPECT_EQ(labels, "Details.HomeNetworkLabel Details.CurrentNetworkLabel Details.DownloadOptionLabel "
                      "Details.RoamingStatusLabel Details.CurrentActivityLabel Details.LastConnectionLabel "
                      "Details.SubscriptionLabel Details.MemoryLabel ");
    EXPECT_NE(node->mDetailsFlag, 0);
}

TEST(TrimSpaces, TakesSpacesOffBothEnds)
{
    const std::pair<std::string, const char*> texts[] = {
        {"", ""}, {"   ", ""}, {"a", "a"}, {" a b ", "a b"}, {"a  ", "a"}, {"  \ta\n ", "\ta\n"},
    };
    for (auto [text, trimmed] : texts) {
        trimSpaces(text.data());
        EXPECT_STREQ(text.c_str(), trimmed);
    }
    trimSpaces(nullptr);
}

} // namespace
