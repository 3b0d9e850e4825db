#include "ApiProvider.h"
#include "ApiRegistry.h"
#include "LogCapture.h"
#include "MenuStore.h"
#include "ProfileForm.h"
#include "SettingHelper.h"
#include "Sqlite.h"
#include "StatusValues.h"
#include "Table.h"

#include <sqlite3.h>

#include <algorithm>
#include <regex>

namespace {

using namespace std::string_literals;

// Every entry there is: its kind, what hides it, what greys it (a mode, by its first letter, or p, a chosen operator
// profile), the setting it watches, and its texts as textsOf() tells them.
const auto entries = table<6>(R"(
SetupHeadlines|node||D|System.EnabledMode|*.label,*.title,TurnoffWarning.label,TurnoffWarning.text
CustomHomeMode|form||p|Menu.ProfileSelected|*.label,*.title,*.InstructText,*.WarningLabelOff,*.WarningOffText,[],[General.OnLabel],![General.OffLabel],[]
AddNewChannel|link|D||System.EnabledMode|*.title,https://headlines.example/channels/add?model=@DEVICE_MODEL@&client=@DP_CLIENT_SW_VERSION@&dpp=@DPP_VERSION@&msisdn=@MSISDN@
HowToUse|action|DH||System.EnabledMode|*.title
ManageMyChannels|link|D||System.EnabledMode|*.title,https://headlines.example/channels
ConfigureHeadlines|node|D||System.EnabledMode|*.label,*.title,,
Scrolling|form||p|Menu.ProfileSelected|*.label,*.title,*.InstructText,,,[],[*.FastLabel],[*.MediumLabel],[*.SlowLabel],[General.OffLabel],[]
Download|form||p|Menu.ProfileSelected|*.label,*.title,*.InstructText,,,[],[*.AlwaysLabel],[*.HomeLabel],[*.NeverLabel],[]
Details|node||p|Menu.ProfileSelected|*.label,*.title,,
Profile|form||p||*.label,*.title,Choose the profile for your headlines:,*.WarningLabel,*.WarningText,![],![Standard],![Data saver],![DISABLE:Business],![]
)");
constexpr const char* kinds[] = {"action", "", "form", "node", "link"}; // by their numbers

Entry* entryOf(const std::string& name)
{
    ApiProvider::instance();
    return EntryRegistry::instance()->find(name);
}

FormEntry* formOf(const std::string& name)
{
    return static_cast<FormAdapter*>(entryOf(name))->form();
}

// The choices from one before the first to one past the last, with a mark where the choice is asked about.
std::string choicesOf(const FormEntry& form)
{
    std::string choices;
    for (int i = -1; i <= form.optionCount(); ++i)
        choices += (form.needsWarning(i) ? ",![" : ",[") + form.optionLabel(i) + ']';
    return choices;
}

// With "*" for the name.
std::string textsOf(Entry* entry, const std::string& name, const std::string& kind)
{
    std::string texts = entry->label();
    if (kind == "link") {
        texts += ',' + static_cast<LinkEntry*>(entry)->url();
    } else if (kind == "node") {
        const MenuNode& node = *nodeOf(name);
        texts += ',' + node.title() + ',' + node.warningLabel() + ',' + node.warningText();
    } else if (kind == "form") {
        const FormEntry& form = *formOf(name);
        texts += ',' + form.title() + ',' + form.instructText() + ',' + form.warningLabel() + ',';
        texts += form.warningText() + choicesOf(form);
    }
    return std::regex_replace(texts, std::regex("\\b" + name + "\\."), "*.");
}

TEST(Entries, AnswerFromTheirOwnKeys)
{
    for (const auto& [name, kind, hides, greys, watched, texts] : entries) {
        SCOPED_TRACE(name);
        MenuStore store(MenuStore::KEYS);
        Entry* entry = entryOf(name);
        ASSERT_NE(entry, nullptr);
        EXPECT_EQ(kinds[EntryRegistry::instance()->kindOf(entry)], kind);
        EXPECT_EQ(entry->hasValue(), kind == "form");
        for (const char* key : {"AddNewChannelURL", "ManageChannelURL"})
            setStringSetting(GROUP_NEWS_READER_UI, key, "http://later.example/"); // links were read before
        EXPECT_EQ(textsOf(entry, name, kind), texts);
        std::set<std::string> keys;
        entry->watchedKeys(keys);
        EXPECT_EQ(keys, watched.empty() ? std::set<std::string>() : std::set{"VtCore." + watched});

        const auto asks = [&] { return kind == "node" && nodeOf(name)->needsWarning(); };
        for (int selected : {1, 2, -1, 0}) {
            setIntSetting(GROUP_MENU, "ProfileSelected", selected);
            EXPECT_EQ(entry->isEnabled(), !(greys == "p" && selected == 1)) << selected;
        }
        for (const char* mode :
             {"ENABLED_NORMAL_MODE", "DISABLED_NORMAL_MODE", "HIDDEN_MODE", "", "disabled"}) {
            setStringSetting(GROUP_SYSTEM, "EnabledMode", mode);
            EXPECT_EQ(entry->isHidden(), std::ranges::count(hides, *mode)) << mode;
            EXPECT_EQ(entry->isEnabled(), !std::ranges::count(greys, *mode)) << mode;
            EXPECT_EQ(asks(), std::ranges::count(greys, *mode)) << mode;
            if (asks()) {
                nodeOf(name)->acceptWarning();
                EXPECT_EQ(getStringSetting(GROUP_SYSTEM, "EnabledMode"), "ENABLED_NORMAL_MODE");
            }
        }
        // Only an entry whose own flag allows it looks further, as a wrong type shows in the log.
        CoreStore::instance().write(GROUP_SYSTEM, "EnabledMode", 1);
        CoreStore::instance().write(GROUP_MENU, "ProfileSelected", "1");
        for (const bool flag : {true, false}) {
            setBoolSetting(GROUP_MENU, (name + ".enabled").c_str(), flag);
            setBoolSetting(GROUP_MENU, (name + ".visible").c_str(), flag);
            const LogCapture log;
            EXPECT_EQ(entry->isHidden(), !flag);
            EXPECT_EQ(entry->isEnabled(), flag);
            EXPECT_EQ(log.lines().size(), flag * (!hides.empty() + !greys.empty())) << log.text();
            EXPECT_FALSE(asks()) << "one that is greyed by its own flag opens all the same";
        }
    }
}

TEST(EntryRegistry, KeepsTheKindOfAnEntryWhoseNameGoesToAnother)
{
    MenuStore store;
    static ActionEntry first("", ""), second("", "");
    EntryRegistry& registry = *EntryRegistry::instance();
    registry.add("Test", &first, ENTRY_LINK);
    registry.add("Test", &second, ENTRY_ACTION);
    EXPECT_EQ(registry.find("Test"), &second);
    EXPECT_EQ(registry.kindOf(&second), ENTRY_ACTION);
    EXPECT_EQ(registry.kindOf(&first), ENTRY_LINK);
    EXPECT_EQ(registry.kindOf(nullptr), ENTRY_UNREGISTERED);
}

TEST(TableForms, ReadAndWriteWhatTheirTablesSay)
{
    MenuStore store;
    // A form, what is stored, the choice it shows as, a choice then made, and what is stored if that is taken.
    for (const auto& [name, stored, current, chosen, then] : table<5>(R"(
Scrolling|3|0|1|2;Scrolling|2|1|3|0;Scrolling|1|2|2|;Scrolling|0|3|0|3;Scrolling|7|0|0|;Scrolling|-1|0|2|1;
Scrolling|2|1|-2147483648|2;Scrolling|2|1|2147483647|;
Download|0|0|2|2;Download|1|1|0|0;Download|2|2|1|1;Download|3|0|3|;
CustomHomeMode|ENABLED_NORMAL_MODE|0|1|DISABLED_NORMAL_MODE;CustomHomeMode|ENABLED_NORMAL_MODE|0|2|;
CustomHomeMode|DISABLED_NORMAL_MODE|1|0|ENABLED_NORMAL_MODE;CustomHomeMode|HIDDEN_MODE|0|0|)")) {
        SCOPED_TRACE(name + stored + chosen);
        const auto [group, key] = name == "Scrolling"  ? std::pair(GROUP_NEWS_READER_UI, "ScrollingRate")
                                  : name == "Download" ? std::pair(GROUP_SERVICE, "DownloadOption")
                                                       : std::pair(GROUP_SYSTEM, "EnabledMode");
        const auto valueOf = [](const std::string& text) {
            return text.ends_with("MODE") ? SettingValue(text) : SettingValue(std::stoi(text));
        };
        SettingValue value;
        CoreStore::instance().write(group, key, valueOf(stored));
        EXPECT_EQ(formOf(name)->currentIndex(), std::stoi(current));
        EXPECT_EQ(formOf(name)->setValue(std::stoi(chosen)), !then.empty());
        CoreStore::instance().read(group, key, value);
        EXPECT_EQ(value, valueOf(then.empty() ? stored : then));
    }
}

TEST(ProfileForm, ListsTheProfilesAndFlagsAndInstallsTheChosenOne)
{
    MenuStore store;
    CoreStore& core = CoreStore::instance();
    FormEntry& form = *formOf("Profile");
    const Entry& line = *entryOf("Profile");
    Sqlite::Connection file; // takes no profile for a new one before the flag is set
    ASSERT_TRUE(file.open(store.path(), SQLITE_OPEN_READWRITE).isOk());
    ASSERT_TRUE(
        file.execute("CREATE TRIGGER t BEFORE UPDATE OF current ON profile WHEN EXISTS (SELECT 1 FROM setting "
                     "WHERE key = 'ProfileSelected' AND value = 0) BEGIN SELECT RAISE(ABORT, 'no flag'); END")
            .isOk());
    // The profiles, called 1, 2 ..., which of them is in force, the choice it shows as, its name in the menu ("-" if
    // there is no second line), the choice made, and the profile it installs, if it is taken.
    for (const auto& [names, before, index, value, chosen, installed] :
         table<6>("a,DISABLE:b|1|0|a|1|2;DISABLE:a,b|1|0||0|;a DISABLE:,b|1|0|a DISABLE:|2|;a,b,b|2|2|b|0|1;"
                  "DISABLE:a|1|0|-|0|1;a|1|0|-|0|1;a,b,c|2|1|b|-1|2")) {
        SCOPED_TRACE(names + chosen);
        OperatorPack pack;
        pack.settings = {{GROUP_MENU, "Profile.visible", true}};
        auto& profiles = pack.profiles.emplace();
        std::string choices = ",![]";
        for (const std::string& name : childNames(names)) {
            const bool isLocked = name.starts_with("DISABLE:");
            profiles.push_back({std::to_string(profiles.size() + 1), name.substr(isLocked ? 8 : 0), !isLocked});
            choices += ",![" + name + ']';
        }
        setIntSetting(GROUP_MENU, "ProfileSelected", 1);
        core.installPack(pack);
        core.setCurrentProfile(before);
        EXPECT_EQ(line.hasValue() ? line.valueText() : "-", value); // reloads the form, first of all
        EXPECT_EQ(choicesOf(form), choices + ",![]");
        EXPECT_EQ(form.currentIndex(), std::stoi(index));
        setIntSetting(GROUP_MENU, "ProfileSelected", 0);
        EXPECT_EQ(form.setValue(std::stoi(chosen)), !installed.empty());
        std::string inForce;
        core.currentProfile(inForce);
        EXPECT_EQ(inForce, installed.empty() ? before : installed);
        EXPECT_EQ(getIntSetting(GROUP_MENU, "ProfileSelected"), !installed.empty() && chosen != "-1");
    }
    core.removeProfile("1"); // since it was listed
    EXPECT_TRUE(form.setValue(0));
    EXPECT_EQ(getIntSetting(GROUP_MENU, "ProfileSelected"), 1);
    for (const char* allowed : {"true", "false"}) {
        core.setFact("user_select_profile", allowed);
        EXPECT_EQ(line.isHidden(), *allowed == 'f');
    }
    static bool isAsked = false;
    ApiRegistry::instance()->add("HIDE_PROFILE_API", ApiRegistry::HidePredicate([] { return isAsked = true; }));
    setBoolSetting(GROUP_MENU, "Profile.visible", false);
    EXPECT_TRUE(line.isHidden() && !isAsked) << "the flag hides it";
    ApiRegistry::instance()->add("HIDE_PROFILE_API", ProfileChoice::isFixed);
}

TEST(ApiOptionForm, TakesAChoiceWithoutASetter)
{
    struct Form : ApiOptionForm
    {
        using ApiOptionForm::ApiOptionForm;
        std::string instructText() const override { return {}; }
    };
    static std::string asked;
    ApiRegistry& apis = *ApiRegistry::instance();
    apis.add("Test.list", ApiRegistry::Text([] { return asked += "list ", "a\nb\n\nb c"s; }));
    apis.add("Test.current", ApiRegistry::Text([] { return asked += "current ", "b"s; }));
    Form form("Test", "Test.list", "Test.current", "Test.no");
    form.reload();
    EXPECT_EQ(choicesOf(form), ",[],[a],[b],[],[b c],[]");
    EXPECT_TRUE(form.currentIndex() == 1 && form.setValue(0));
    EXPECT_EQ(asked, "list current ");
}

// The names of the node's children after a fresh load: "Scrolling,Download". Each label is its own key.
std::string listed(const char* name)
{
    MenuNode* node = nodeOf(name);
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
    // The root's child list, its sub-menu's, and what the root then lists. The last four lead back to themselves.
    for (const auto& [setup, configure, expected] : table<3>(R"(
 CustomHomeMode , Scrolling ,Download  ||CustomHomeMode,Scrolling,Download
Scrolling,Nothing,,Download,Scrolling,||Scrolling,Download,Scrolling
scrolling,	Scrolling,Scroll ing,   ||;||
HowToUse,CustomHomeMode||CustomHomeMode;ConfigureHeadlines|HowToUse|ConfigureHeadlines;ConfigureHeadlines|Details|Details
ConfigureHeadlines,Download|Scrolling,Download|ConfigureHeadlines,Download
ConfigureHeadlines,Download|HowToUse,Scrolling|Scrolling,Download
SetupHeadlines,Scrolling||SetupHeadlines,Scrolling;ConfigureHeadlines|SetupHeadlines|SetupHeadlines
ConfigureHeadlines|ConfigureHeadlines|ConfigureHeadlines
ConfigureHeadlines,Scrolling|SetupHeadlines,Download|ConfigureHeadlines,Scrolling
)" + std::string(5000, 'x') + ",Download||Download\nScrolling,Download\0,Profile||Scrolling,Download"s)) {
        setStringSetting(GROUP_MENU, "SetupHeadlines.ChildIDs", setup);
        setStringSetting(GROUP_MENU, "ConfigureHeadlines.ChildIDs", configure);
        EXPECT_EQ(listed("SetupHeadlines"), expected) << setup << " / " << configure;
        listed("ConfigureHeadlines"); // comes to an end from there, too
    }
}

// Or two lists of some hundred names would take as many squared.
TEST(MenuNode, LoadsASubMenuOnceHoweverOftenAListNamesItAndNeverAHiddenOne)
{
    MenuStore store(MenuStore::KEYS);
    const LogCapture log;
    setStringSetting(GROUP_MENU, "SetupHeadlines.ChildIDs", "ConfigureHeadlines,Download,ConfigureHeadlines");
    setStringSetting(GROUP_MENU, "ConfigureHeadlines.ChildIDs", "Scrolling,Download,Profile");
    setIntSetting(GROUP_MENU, "Profile.visible", 1); // of the wrong type, which is logged when it is read
    EXPECT_EQ(listed("SetupHeadlines"), "ConfigureHeadlines,Download,ConfigureHeadlines");
    EXPECT_EQ(log.lines().size(), 1u) << log.text();

    setBoolSetting(GROUP_MENU, "ConfigureHeadlines.visible", false);
    nodeOf("ConfigureHeadlines")->clearChildren();
    EXPECT_EQ(listed("SetupHeadlines"), "Download");
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
    listed("Details");
    std::string page;
    for (const Entry* row : nodeOf("Details")->mChildren) {
        EXPECT_TRUE(!row->isHidden() && row->isEnabled() && row->hasValue());
        const std::string value = std::regex_replace(row->valueText(), std::regex("\n"), "\\n");
        page += row->label() + ": " + std::regex_replace(value, std::regex(R"(^[-:\d ]+\\n)"), "date, ") + '\n';
    }
    EXPECT_EQ(page, R"(Details.HomeNetworkLabel: Northline
Details.CurrentNetworkLabel: Elsewhere
Details.DownloadOptionLabel: Download.AlwaysLabel
Details.RoamingStatusLabel: Roaming.NonRoamingLabel
Details.CurrentActivityLabel: Details.IdleLabel
Details.LastConnectionLabel: date, Details.FailedLabel
Details.SubscriptionLabel: 3 Details.ChannelsLabel\nWorld News\nSport\nWeather\n
Details.MemoryLabel: Details.ContentMemoryLabel 0 K\nDetails.FreeMemoryLabel 680 K\nDetails.TotalMemoryLabel 680 K\n
)");
    EXPECT_NE(nodeOf("Details")->mDetailsFlag, 0);
}

} // namespace
