#include "ApiProvider.h"
#include "FormEntry.h"
#include "HeadlineEntries.h"
#include "MenuStore.h"
#include "SettingHelper.h"

namespace {

constexpr char mode[] = "VtCore.System.EnabledMode";
constexpr char profile[] = "VtCore.Menu.ProfileSelected";

// Every entry there is.
const struct
{
    std::string name;
    int kind;
    std::string label;
    const char* hiddenIn; // which of the modes of `modes` hide it
    const char* greyedIn; // which of them disable it
    bool greyedByProfile; // whether a chosen operator profile does
    std::set<std::string> watched;
} entries[] = {
    {"SetupHeadlines", ENTRY_NODE, "SetupHeadlines.label", ".....", ".x...", false, {mode}},
    {"CustomHomeMode", ENTRY_FORM, "CustomHomeMode.label", ".....", ".....", true, {profile}},
    {"AddNewChannel", ENTRY_LINK, "AddNewChannel.title", ".x...", ".....", false, {mode}},
    {"HowToUse", ENTRY_ACTION, "HowToUse.title", ".xx..", ".....", false, {mode}},
    {"ManageMyChannels", ENTRY_LINK, "ManageMyChannels.title", ".x...", ".....", false, {mode}},
    {"ConfigureHeadlines", ENTRY_NODE, "ConfigureHeadlines.label", ".x...", ".....", false, {mode}},
    {"Scrolling", ENTRY_FORM, "Scrolling.label", ".....", ".....", true, {profile}},
    {"Download", ENTRY_FORM, "Download.label", ".....", ".....", true, {profile}},
    {"Details", ENTRY_NODE, "Details.label", ".....", ".....", true, {profile}},
    {"Profile", ENTRY_FORM, "Profile.label", ".....", ".....", true, {}},
};
constexpr const char* modes[] = {"ENABLED_NORMAL_MODE", "DISABLED_NORMAL_MODE", "HIDDEN_MODE", "", "disabled"};

Entry* entryOf(const std::string& name)
{
    ApiProvider::instance();
    return EntryRegistry::instance()->find(name);
}

FormEntry* formOf(Entry* entry)
{
    return static_cast<FormAdapter*>(entry)->form();
}

TEST(Entries, AnswerFromTheirOwnKeys)
{
    MenuStore store(MenuStore::KEYS);
    for (const auto& e : entries) {
        SCOPED_TRACE(e.name);
        Entry* entry = entryOf(e.name);
        ASSERT_NE(entry, nullptr);
        EXPECT_EQ(EntryRegistry::instance()->kindOf(entry), e.kind);
        EXPECT_EQ(entry->label(), e.label);
        EXPECT_EQ(entry->hasValue(), e.kind == ENTRY_FORM);
        if (e.kind == ENTRY_NODE) {
            EXPECT_EQ(nodeOf(e.name.c_str())->title(), e.name + ".title");
        } else if (e.kind == ENTRY_FORM) {
            EXPECT_EQ(formOf(entry)->title(), e.name + ".title");
            EXPECT_EQ(formOf(entry)->instructText(), e.name == "Profile"
                                                         ? "Choose the profile for your headlines:"
                                                         : e.name + ".InstructText");
        }
        std::set<std::string> keys;
        entry->watchedKeys(keys);
        EXPECT_EQ(keys, e.watched);

        for (size_t m = 0; m < std::size(modes); ++m) {
            setStringSetting(GROUP_SYSTEM, "EnabledMode", modes[m]);
            EXPECT_EQ(entry->isHidden(), e.hiddenIn[m] == 'x') << modes[m];
            EXPECT_EQ(entry->isEnabled(), e.greyedIn[m] != 'x') << modes[m];
        }
        for (int selected : {1, 2, -1, 0}) {
            setIntSetting(GROUP_MENU, "ProfileSelected", selected);
            EXPECT_EQ(entry->isEnabled(), !(e.greyedByProfile && selected == 1)) << selected;
        }
        setBoolSetting(GROUP_MENU, (e.name + ".enabled").c_str(), false);
        EXPECT_FALSE(entry->isEnabled());
        setBoolSetting(GROUP_MENU, (e.name + ".visible").c_str(), false);
        EXPECT_TRUE(entry->isHidden());
    }
}

TEST(ChannelLink, ReadsItsLinkOnce)
{
    MenuStore store;
    setStringSetting(GROUP_NEWS_READER_UI, "AddNewChannelURL", "http://a.example/");
    setStringSetting(GROUP_NEWS_READER_UI, "ManageChannelURL", "http://m.example/");
    const ChannelLink add("AddNewChannel", "AddNewChannelURL");
    const ChannelLink manage("ManageMyChannels", "ManageChannelURL");
    setStringSetting(GROUP_NEWS_READER_UI, "AddNewChannelURL", "http://later.example/");
    EXPECT_EQ(add.url(), "http://a.example/");
    EXPECT_EQ(manage.url(), "http://m.example/");
}

TEST(SetupHeadlinesNode, WarnsWhileTheServiceIsOff)
{
    MenuStore store(MenuStore::KEYS);
    MenuNode* node = nodeOf("SetupHeadlines");
    EXPECT_FALSE(node->needsWarning());
    setStringSetting(GROUP_SYSTEM, "EnabledMode", "DISABLED_NORMAL_MODE");
    EXPECT_TRUE(node->needsWarning());
    EXPECT_EQ(node->warningLabel(), "TurnoffWarning.label");
    EXPECT_EQ(node->warningText(), "TurnoffWarning.text");
    node->acceptWarning();
    EXPECT_EQ(getStringSetting(GROUP_SYSTEM, "EnabledMode"), "ENABLED_NORMAL_MODE");

    setBoolSetting(GROUP_MENU, "SetupHeadlines.enabled", false);
    EXPECT_FALSE(node->isEnabled() || node->needsWarning()) << "greyed, but opens without asking";
}

} // namespace
