#include "ApiRegistry.h"
#include "CustomHomeModeForm.h"
#include "DownloadForm.h"
#include "FormAdapter.h"
#include "LogCapture.h"
#include "MenuStore.h"
#include "ProfileForm.h"
#include "ScrollingForm.h"
#include "SettingHelper.h"
#include "SetupHeadlinesNode.h"

#include <climits>
#include <span>

namespace {

// The labels from one before the first choice to one past the last.
std::string labels(const FormEntry& form)
{
    std::string labels;
    for (int i = -1; i <= form.optionCount(); ++i)
        labels += '[' + form.optionLabel(i) + ']';
    return labels;
}

// What is stored, the choice it shows as, a choice then made, whether it changes anything, and what is stored then.
template <class Value>
struct Step
{
    Value stored;
    int current;
    int chosen;
    bool changes;
    Value then;
};

template <class Value, class Get, class Set>
void walk(FormEntry& form, std::span<const Step<Value>> steps, Get get, Set set, int group, const char* key)
{
    for (const auto& step : steps) {
        set(group, key, step.stored);
        EXPECT_EQ(form.currentIndex(), step.current) << step.stored;
        EXPECT_EQ(form.setValue(step.chosen), step.changes) << step.stored << " " << step.chosen;
        EXPECT_EQ(get(group, key), step.then) << step.stored << " " << step.chosen;
    }
}

TEST(TableForms, ReadAndWriteWhatTheirTablesSay)
{
    MenuStore store(MenuStore::KEYS);
    const Step<int> rates[] = {
        {3, 0, 1, true, 2},  {2, 1, 3, true, 0},       {1, 2, 2, false, 1},       {0, 3, 0, true, 3},
        {7, 0, 0, false, 7}, {7, 0, 1, true, 2},       {-1, 0, 2, true, 1},       {2, 1, 4, false, 2},
        {2, 1, -1, true, 2}, {2, 1, INT_MIN, true, 2}, {2, 1, INT_MAX, false, 2},
    };
    ScrollingForm scrolling;
    EXPECT_EQ(labels(scrolling), "[][Scrolling.FastLabel][Scrolling.MediumLabel][Scrolling.SlowLabel]"
                                 "[General.OffLabel][]");
    walk<int>(scrolling, rates, getIntSetting, setIntSetting, GROUP_NEWS_READER_UI, "ScrollingRate");

    const Step<int> options[] = {
        {0, 0, 2, true, 2},  {1, 1, 0, true, 0},    {2, 2, 1, true, 1},
        {2, 2, 2, false, 2}, {-1, 0, 0, false, -1}, {3, 0, 3, false, 3},
    };
    DownloadForm download;
    EXPECT_EQ(labels(download), "[][Download.AlwaysLabel][Download.HomeLabel][Download.NeverLabel][]");
    walk<int>(download, options, getIntSetting, setIntSetting, GROUP_SERVICE, "DownloadOption");

    const std::string on = "ENABLED_NORMAL_MODE", off = "DISABLED_NORMAL_MODE", hidden = "HIDDEN_MODE";
    const Step<std::string> modes[] = {
        {on, 0, 1, true, off},         {off, 1, 0, true, on},     {off, 1, 1, false, off},
        {hidden, 0, 0, false, hidden}, {hidden, 0, 1, true, off}, {"", 0, 0, false, ""},
        {on, 0, 2, false, on},         {on, 0, -1, true, on},
    };
    CustomHomeModeForm mode;
    EXPECT_EQ(labels(mode), "[][General.OnLabel][General.OffLabel][]");
    walk<std::string>(mode, modes, getStringSetting, setStringSetting, GROUP_SYSTEM, "EnabledMode");
}

TEST(Forms, TakeWhatCanNotBeWritten)
{
    CoreStore::use("/dev/null/core.db"); // can't be a file, so every write fails
    ScrollingForm scrolling;
    ASSERT_EQ(scrolling.currentIndex(), 1) << "the built-in pack's";
    LogCapture log;
    EXPECT_TRUE(scrolling.setValue(0));
    EXPECT_EQ(scrolling.currentIndex(), 1);
    SetupHeadlinesNode().acceptWarning();
    const std::string prefix = "(SettingHelper:*)[~~~~vistane~~~~]";
    EXPECT_EQ(log.lines(),
              (std::vector{prefix + "set 3 setting failed for VtNewsReader.UI.ScrollingRate: 3",
                           prefix + "set string ENABLED_NORMAL_MODE failed for VtCore.System.EnabledMode: 3"}));
}

TEST(Forms, WarnBeforeWhatCanNotBeTakenBackLightly)
{
    MenuStore store(MenuStore::KEYS);
    const ScrollingForm scrolling;
    const CustomHomeModeForm mode;
    const ProfileForm profile;
    for (int i : {-1, 0, 1, 2}) {
        EXPECT_FALSE(scrolling.needsWarning(i));
        EXPECT_EQ(mode.needsWarning(i), i == 1);
        EXPECT_TRUE(profile.needsWarning(i));
    }
    EXPECT_EQ(mode.warningLabel() + mode.warningText(),
              "CustomHomeMode.WarningLabelOffCustomHomeMode.WarningOffText");
    EXPECT_EQ(profile.warningLabel() + profile.warningText(), "Profile.WarningLabelProfile.WarningText");
}

std::string list;
std::string current;
std::vector<int> chosen;

class TestForm : public ApiOptionForm
{
public:
    explicit TestForm(const char* setApi = "TEST_SET")
        : ApiOptionForm("Test", "TEST_LIST", "TEST_CURRENT", setApi)
    {
        ApiRegistry* apis = ApiRegistry::instance();
        apis->add("TEST_LIST", [] { return list; });
        apis->add("TEST_CURRENT", [] { return current; });
        apis->add("TEST_SET", [](int i) { chosen.push_back(i); });
    }

    std::string instructText() const override { return {}; }
};

TEST(ApiOptionForm, ReadsItsChoicesLineByLine)
{
    const struct
    {
        const char* list;
        const char* current;
        const char* labels;
        int index;
        bool hasValue;     // whether a menu shows a second line,
        const char* value; // and which
    } cases[] = {
        {"a\nb\nc\n", "b", "[][a][b][c][]", 1, true, "b"},
        {"a\nb", "b", "[][a][b][]", 1, true, "b"}, // the last line counts without its end
        {"a\nb\n", "x", "[][a][b][]", 0, true, "a"},
        {"a\nDISABLE:b\n", "b", "[][a][DISABLE:b][]", 0, true, "a"},
        {"DISABLE:a\nb\n", "a", "[][DISABLE:a][b][]", 0, true, ""},
        {"DISABLE:\nb\n", "", "[][DISABLE:][b][]", 0, true, ""},
        {"a DISABLE:\nb\n", "", "[][a DISABLE:][b][]", 0, true, "a DISABLE:"},
        {"a\nb\nb\n", "b", "[][a][b][b][]", 2, true, "b"},
        {"a\n\nc\n", "", "[][a][][c][]", 1, true, ""},
        {"a\n", "a", "[][a][]", 0, false, "a"},
        {"", "a", "[][]", 0, false, ""},
    };
    TestForm form;
    const FormAdapter adapter(&form);
    for (const auto& c : cases) {
        list = c.list;
        current = c.current;
        EXPECT_EQ(adapter.hasValue(), c.hasValue) << c.list; // reloads the form
        EXPECT_EQ(labels(form), c.labels);
        EXPECT_EQ(form.currentIndex(), c.index) << c.list;
        EXPECT_EQ(adapter.valueText(), c.value);
    }
}

TEST(ApiOptionForm, HandsTheIndexToItsSetter)
{
    TestForm form;
    list = "a\nb\nc\n";
    current = "b";
    form.reload();
    chosen.clear();
    EXPECT_FALSE(form.setValue(1)) << "in force";
    EXPECT_FALSE(form.setValue(3));
    EXPECT_TRUE(form.setValue(2));
    list = "DISABLE:a";
    form.reload();
    EXPECT_FALSE(form.setValue(0)) << "not even the only choice, which nobody is asked for";
    list = current = "a";
    form.reload();
    EXPECT_TRUE(form.setValue(0) && form.setValue(0)) << "an only choice is applied each time";
    EXPECT_EQ(chosen, (std::vector<int>{2, 0, 0}));

    TestForm without("NO_SUCH_API");
    without.reload();
    EXPECT_TRUE(without.setValue(0));
}

} // namespace
