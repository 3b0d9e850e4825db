#include "ApiProvider.h"
#include "ApiRegistry.h"
#include "BusListener.h"
#include "LogCapture.h"
#include "MenuStore.h"
#include "ProfileForm.h"
#include "SettingHelper.h"
#include "Sqlite.h"

#include <sqlite3.h>

#include <algorithm>
#include <climits>
#include <tuple>

namespace {

// Every entry there is.
const struct
{
    std::string name;
    int kind;
    std::string hiddenIn; // which of the modes of `modes` hide it
    std::string greyedIn; // which of them disable it
    bool greyedByProfile; // whether a chosen operator profile does
    std::string watched;
    std::string texts; // as textsOf() tells them
} entries[] = {
    {"SetupHeadlines", ENTRY_NODE, ".....", ".x...", false, "VtCore.System.EnabledMode",
     "*.label,*.title,TurnoffWarning.label,TurnoffWarning.text"},
    {"CustomHomeMode", ENTRY_FORM, ".....", ".....", true, "VtCore.Menu.ProfileSelected",
     "*.label,*.title,*.InstructText,*.WarningLabelOff,*.WarningOffText,[],[General.OnLabel],![General."
     "OffLabel],[]"},
    {"AddNewChannel", ENTRY_LINK, ".x...", ".....", false, "VtCore.System.EnabledMode", "*.title"},
    {"HowToUse", ENTRY_ACTION, ".xx..", ".....", false, "VtCore.System.EnabledMode", "*.title"},
    {"ManageMyChannels", ENTRY_LINK, ".x...", ".....", false, "VtCore.System.EnabledMode", "*.title"},
    {"ConfigureHeadlines", ENTRY_NODE, ".x...", ".....", false, "VtCore.System.EnabledMode",
     "*.label,*.title,,"},
    {"Scrolling", ENTRY_FORM, ".....", ".....", true, "VtCore.Menu.ProfileSelected",
     "*.label,*.title,*.InstructText,,,[],[*.FastLabel],[*.MediumLabel],[*.SlowLabel],[General.OffLabel],[]"},
    {"Download", ENTRY_FORM, ".....", ".....", true, "VtCore.Menu.ProfileSelected",
     "*.label,*.title,*.InstructText,,,[],[*.AlwaysLabel],[*.HomeLabel],[*.NeverLabel],[]"},
    {"Details", ENTRY_NODE, ".....", ".....", true, "VtCore.Menu.ProfileSelected", "*.label,*.title,,"},
    {"Profile", ENTRY_FORM, ".....", ".....", true, "",
     "*.label,*.title,Choose the profile for your headlines:,*.WarningLabel,*.WarningText,![],![Standard],"
     "![Data saver],![DISABLE:Business],![]"},
};
constexpr const char* modes[] = {"ENABLED_NORMAL_MODE", "DISABLED_NORMAL_MODE", "HIDDEN_MODE", "", "disabled"};

// The links are read when the entries are made.
struct MadeEntries : testing::Environment
{
    void SetUp() override
    {
        MenuStore store;
        ApiProvider::instance();
        EntryRegistry::instance();
    }
};
[[maybe_unused]] const auto* const made = testing::AddGlobalTestEnvironment(new MadeEntries);

Entry* entryOf(const std::string& name)
{
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

std::string textsOf(const std::string& name, int kind)
{
    const std::string label = entryOf(name)->label();
    if (kind == ENTRY_NODE) {
        const MenuNode& node = *nodeOf(name.c_str());
        return label + ',' + node.title() + ',' + node.warningLabel() + ',' + node.warningText();
    }
    if (kind != ENTRY_FORM)
        return label;
    const FormEntry& form = *formOf(name);
    return label + ',' + form.title() + ',' + form.instructText() + ',' + form.warningLabel() + ',' +
           form.warningText() + choicesOf(form);
}

TEST(Entries, AnswerFromTheirOwnKeys)
{
    for (const auto& e : entries) {
        SCOPED_TRACE(e.name);
        MenuStore store(MenuStore::KEYS);
        Entry* entry = entryOf(e.name);
        ASSERT_NE(entry, nullptr);
        EXPECT_EQ(EntryRegistry::instance()->kindOf(entry), e.kind);
        EXPECT_EQ(entry->hasValue(), e.kind == ENTRY_FORM);
        std::string texts = e.texts;
        for (size_t star; (star = texts.find('*')) != std::string::npos;)
            texts.replace(star, 1, e.name);
        EXPECT_EQ(textsOf(e.name, e.kind), texts);
        std::set<std::string> keys;
        entry->watchedKeys(keys);
        EXPECT_EQ(keys, e.watched.empty() ? std::set<std::string>() : std::set{e.watched});

        for (size_t m = 0; m < std::size(modes); ++m) {
            setStringSetting(GROUP_SYSTEM, "EnabledMode", modes[m]);
            EXPECT_EQ(entry->isHidden(), e.hiddenIn[m] == 'x') << modes[m];
            EXPECT_EQ(entry->isEnabled(), e.greyedIn[m] != 'x') << modes[m];
        }
        for (int selected : {1, 2, -1, 0}) {
            setIntSetting(GROUP_MENU, "ProfileSelected", selected);
            EXPECT_EQ(entry->isEnabled(), !(e.greyedByProfile && selected == 1)) << selected;
        }
        // Only an entry whose own flag allows it looks further, as a wrong type shows in the log.
        const bool hides = e.hiddenIn.find('x') != std::string::npos;
        const bool greys = e.greyedByProfile || e.greyedIn.find('x') != std::string::npos;
        CoreStore::instance().write(GROUP_SYSTEM, "EnabledMode", 1);
        CoreStore::instance().write(GROUP_MENU, "ProfileSelected", "1");
        for (const bool flag : {true, false}) {
            setBoolSetting(GROUP_MENU, (e.name + ".enabled").c_str(), flag);
            setBoolSetting(GROUP_MENU, (e.name + ".visible").c_str(), flag);
            const LogCapture log;
            EXPECT_EQ(entry->isHidden(), !flag);
            EXPECT_EQ(log.lines().size(), flag * hides) << log.text();
            EXPECT_EQ(entry->isEnabled(), flag);
            EXPECT_EQ(log.lines().size(), flag * (hides + greys)) << log.text();
        }
    }
}

// One whose API is not registered would show nothing, or do nothing.
TEST(Entries, FindEveryApiTheyName)
{
    MenuStore store;
    BusListener bus(BusSignals::event);
    std::set<std::string> names{"SetupHeadlines"};
    for (const auto& setting : OperatorPack::builtIn().settings) {
        if (setting.key.ends_with(".ChildIDs"))
            for (const std::string& name : childNames(std::get<std::string>(setting.value)))
                names.insert(name);
    }
    for (const std::string& name : names) {
        SCOPED_TRACE(name);
        Entry* entry = entryOf(name);
        ASSERT_NE(entry, nullptr);
        EXPECT_TRUE(std::ranges::any_of(entries, [&](const auto& e) { return e.name == name; }))
            << "is not tested";
        const int kind = EntryRegistry::instance()->kindOf(entry);
        if (kind == ENTRY_ACTION) {
            static_cast<ActionEntry*>(entry)->invoke();
            EXPECT_EQ(bus.take().size(), 1);
        } else if (kind == ENTRY_FORM) {
            EXPECT_TRUE(entry->hasValue());
            EXPECT_NE(entry->valueText(), "");
            EXPECT_TRUE(formOf(name)->setValue(formOf(name)->currentIndex() == 0));
        } else if (kind == ENTRY_NODE && nodeOf(name.c_str())->mDetailsFlag != 0) {
            for (const Entry* row : nodeOf(name.c_str())->mChildren)
                EXPECT_NE(row->valueText(), "") << row->label();
        }
    }
}

TEST(EntryRegistry, KeepsTheKindOfAnEntryWhoseNameGoesToAnother)
{
    static ActionEntry first("", ""), second("", ""), unknown("", "");
    EntryRegistry& registry = *EntryRegistry::instance();
    registry.add("Test", &first, ENTRY_LINK);
    registry.add("Test", &second, ENTRY_ACTION);
    const std::pair<const Entry*, int> kinds[] = {{&first, ENTRY_LINK},
                                                  {&second, ENTRY_ACTION},
                                                  {&unknown, ENTRY_UNREGISTERED},
                                                  {nullptr, ENTRY_UNREGISTERED},
                                                  {nodeOf("Details")->mChildren[0], ENTRY_UNREGISTERED}};
    for (const auto& [entry, kind] : kinds)
        EXPECT_EQ(registry.kindOf(entry), kind);
    EXPECT_EQ(registry.find("Test"), &second);
    for (const char* name : {"", "A", "Test2", "test", "zzz"})
        EXPECT_EQ(registry.find(name), nullptr) << name;
}

TEST(ChannelLink, ReadsItsLinkOnce)
{
    MenuStore store;
    for (const auto& [name, key] :
         {std::pair("AddNewChannel", "AddNewChannelURL"), std::pair("ManageMyChannels", "ManageChannelURL")}) {
        const std::string first = getStringSetting(GROUP_NEWS_READER_UI, key);
        setStringSetting(GROUP_NEWS_READER_UI, key, "http://later.example/");
        EXPECT_EQ(static_cast<LinkEntry*>(entryOf(name))->url(), first);
    }
}

TEST(SetupHeadlinesNode, WarnsWhileTheServiceIsOff)
{
    MenuStore store(MenuStore::KEYS);
    MenuNode* node = nodeOf("SetupHeadlines");
    EXPECT_FALSE(node->needsWarning());
    setStringSetting(GROUP_SYSTEM, "EnabledMode", "DISABLED_NORMAL_MODE");
    EXPECT_TRUE(node->needsWarning());
    node->acceptWarning();
    EXPECT_EQ(getStringSetting(GROUP_SYSTEM, "EnabledMode"), "ENABLED_NORMAL_MODE");
    setBoolSetting(GROUP_MENU, "SetupHeadlines.enabled", false);
    EXPECT_FALSE(node->isEnabled() || node->needsWarning()) << "greyed, but opens without asking";
}

TEST(TableForms, ReadAndWriteWhatTheirTablesSay)
{
    MenuStore store;
    const std::string on = "ENABLED_NORMAL_MODE", off = "DISABLED_NORMAL_MODE", hidden = "HIDDEN_MODE";
    const std::tuple<const char*, int, const char*> rate{"Scrolling", GROUP_NEWS_READER_UI, "ScrollingRate"},
        load{"Download", GROUP_SERVICE, "DownloadOption"}, mode{"CustomHomeMode", GROUP_SYSTEM, "EnabledMode"};
    // A form, what is stored, the choice it shows as, a choice then made, whether it is taken, what is stored then.
    const std::tuple<decltype(rate), SettingValue, int, int, bool, SettingValue> steps[] = {
        {rate, 3, 0, 1, true, 2},        {rate, 2, 1, 3, true, 0},
        {rate, 1, 2, 2, false, 1},       {rate, 0, 3, 0, true, 3},
        {rate, 7, 0, 0, false, 7},       {rate, -1, 0, 2, true, 1},
        {load, 0, 0, 2, true, 2},        {rate, 2, 1, INT_MIN, true, 2},
        {rate, 2, 1, INT_MAX, false, 2}, {load, 1, 1, 0, true, 0},
        {load, 2, 2, 1, true, 1},        {load, 3, 0, 3, false, 3},
        {mode, on, 0, 1, true, off},     {mode, off, 1, 0, true, on},
        {mode, on, 0, 2, false, on},     {mode, hidden, 0, 0, false, hidden},
    };
    for (const auto& [setting, stored, current, chosen, isTaken, then] : steps) {
        const auto& [name, group, key] = setting;
        SCOPED_TRACE(name + std::to_string(chosen));
        SettingValue value;
        CoreStore::instance().write(group, key, stored);
        EXPECT_EQ(formOf(name)->currentIndex(), current);
        EXPECT_EQ(formOf(name)->setValue(chosen), isTaken);
        CoreStore::instance().read(group, key, value);
        EXPECT_EQ(value, then);
    }
}

TEST(ProfileForm, ListsTheProfilesAndInstallsTheChosenOne)
{
    TestStore store(R"({"settings": {"VtCore.Menu": {"Profile.visible": true}}})");
    CoreStore& core = CoreStore::instance();
    FormEntry& form = *formOf("Profile");
    const Entry& line = *entryOf("Profile");
    const struct
    {
        std::vector<OperatorPack::Profile> profiles;
        const char* inForce;
        const char* choices;
        int index;
        const char* value; // in a menu; null: there is no second line
        int chosen;
        const char* installed; // null: the choice is not taken
    } cases[] = {
        {{{"1", "a"}, {"2", "b", false}}, "1", "![a],![DISABLE:b]", 0, "a", 1, "2"},
        {{{"1", "a", false}, {"2", "b"}}, "1", "![DISABLE:a],![b]", 0, "", 0, nullptr},
        {{{"1", "a DISABLE:"}, {"2", "b"}}, "1", "![a DISABLE:],![b]", 0, "a DISABLE:", 2, nullptr},
        {{{"1", "a"}, {"2", "b"}, {"3", "b"}}, "2", "![a],![b],![b]", 2, "b", 0, "1"},
        {{{"1", "a", false}}, "1", "![DISABLE:a]", 0, nullptr, 0, "1"},
        {{{"1", "a"}}, "1", "![a]", 0, nullptr, 0, "1"},
        {{{"1", "a"}, {"2", "b"}, {"3", "c"}}, "2", "![a],![b],![c]", 1, "b", -1, "2"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.choices);
        OperatorPack pack;
        pack.profiles = c.profiles;
        pack.settings = {{GROUP_MENU, "Profile.visible", true}};
        core.installPack(pack);
        core.setCurrentProfile(c.inForce);
        EXPECT_EQ(line.hasValue(), c.value != nullptr); // reloads the form
        EXPECT_EQ(choicesOf(form), std::string(",![],") + c.choices + ",![]");
        EXPECT_EQ(form.currentIndex(), c.index);
        EXPECT_EQ(line.valueText(), c.value ? c.value : line.valueText());
        setIntSetting(GROUP_MENU, "ProfileSelected", 0);
        EXPECT_EQ(form.setValue(c.chosen), c.installed != nullptr);
        std::string inForce;
        core.currentProfile(inForce);
        EXPECT_EQ(inForce, c.installed ? c.installed : c.inForce);
        EXPECT_EQ(getIntSetting(GROUP_MENU, "ProfileSelected"), c.installed && c.chosen >= 0);
    }
    core.removeProfile("1"); // since it was listed
    EXPECT_TRUE(form.setValue(0));
    EXPECT_EQ(getIntSetting(GROUP_MENU, "ProfileSelected"), 1);
    for (const char* allowed : {"true", "false"}) {
        core.setFact("user_select_profile", allowed);
        EXPECT_EQ(line.isHidden(), *allowed == 'f');
    }
    static bool isAsked = false;
    const ApiRegistry::HidePredicate note = [] { return isAsked = true; };
    ApiRegistry::instance()->add("HIDE_PROFILE_API", note);
    setBoolSetting(GROUP_MENU, "Profile.visible", false);
    EXPECT_TRUE(line.isHidden());
    EXPECT_FALSE(isAsked) << "though the flag hides it";
    ApiRegistry::instance()->add("HIDE_PROFILE_API", ProfileChoice::isFixed);
}

TEST(ProfileForm, SetsTheFlagBeforeItInstalls)
{
    TestStore store(R"({"profiles": [{"id": "a", "name": "A"}, {"id": "b", "name": "B"}]})");
    Sqlite::Connection file;
    ASSERT_TRUE(file.open(store.path(), SQLITE_OPEN_READWRITE).isOk());
    ASSERT_TRUE(
        file.execute("CREATE TRIGGER t BEFORE UPDATE OF current ON profile WHEN NOT EXISTS (SELECT 1 FROM "
                     "setting WHERE key = 'ProfileSelected') BEGIN SELECT RAISE(ABORT, 'no flag'); END")
            .isOk());
    FormEntry& form = *formOf("Profile");
    form.reload();
    EXPECT_TRUE(form.setValue(1));
    form.reload();
    EXPECT_EQ(form.currentIndex(), 1);
}

TEST(ApiOptionForm, TakesAChoiceWithoutASetter)
{
    struct Form : ApiOptionForm
    {
        using ApiOptionForm::ApiOptionForm;
        std::string instructText() const override { return {}; }
    };
    static std::string asked;
    ApiRegistry::instance()->add(
        "Test.list", +[] { return asked += "list ", std::string("a\nb\n\nb c"); });
    ApiRegistry::instance()->add(
        "Test.current", +[] { return asked += "current ", std::string("b"); });
    Form form("Test", "Test.list", "Test.current", "Test.no"), empty("Test", "Test.no", "Test.no", "Test.no");
    for (int i = 0; i < 2; ++i) {
        form.reload();
        EXPECT_EQ(choicesOf(form), ",[],[a],[b],[],[b c],[]");
        EXPECT_EQ(form.currentIndex(), 1);
        EXPECT_TRUE(form.setValue(0));
    }
    EXPECT_EQ(asked, "list current list current ");
    empty.reload();
    EXPECT_EQ(empty.optionCount(), 0);
}

} // namespace
