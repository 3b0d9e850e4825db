#include "ApiProvider.h"
#include "FormEntry.h"
#include "MenuStore.h"
#include "ProfileForm.h"
#include "SettingsForms.h"
#include "SettingHelper.h"

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

// What is stored, the choice it shows as, a choice then made, whether it is taken, and what is stored then.
struct Step
{
    SettingValue stored;
    int current;
    int chosen;
    bool taken;
    SettingValue then;
};

void walk(FormEntry& form, std::span<const Step> steps, int group, const char* key)
{
    for (size_t i = 0; i < steps.size(); ++i) {
        SCOPED_TRACE(key + std::to_string(i));
        SettingValue value;
        CoreStore::instance().write(group, key, steps[i].stored);
        EXPECT_EQ(form.currentIndex(), steps[i].current);
        EXPECT_EQ(form.setValue(steps[i].chosen), steps[i].taken);
        CoreStore::instance().read(group, key, value);
        EXPECT_EQ(value, steps[i].then);
    }
}

TEST(TableForms, ReadAndWriteWhatTheirTablesSay)
{
    MenuStore store(MenuStore::KEYS);
    const Step rates[] = {
        {3, 0, 1, true, 2},  {2, 1, 3, true, 0},  {1, 2, 2, false, 1},      {0, 3, 0, true, 3},
        {7, 0, 0, false, 7}, {-1, 0, 2, true, 1}, {2, 1, INT_MIN, true, 2}, {2, 1, INT_MAX, false, 2},
    };
    ScrollingForm scrolling;
    EXPECT_EQ(labels(scrolling), "[][Scrolling.FastLabel][Scrolling.MediumLabel][Scrolling.SlowLabel]"
                                 "[General.OffLabel][]");
    walk(scrolling, rates, GROUP_NEWS_READER_UI, "ScrollingRate");

    const Step options[] = {{0, 0, 2, true, 2}, {1, 1, 0, true, 0}, {2, 2, 1, true, 1}, {3, 0, 3, false, 3}};
    DownloadForm download;
    EXPECT_EQ(labels(download), "[][Download.AlwaysLabel][Download.HomeLabel][Download.NeverLabel][]");
    walk(download, options, GROUP_SERVICE, "DownloadOption");

    const std::string on = "ENABLED_NORMAL_MODE", off = "DISABLED_NORMAL_MODE", hidden = "HIDDEN_MODE";
    const Step modes[] = {
        {on, 0, 1, true, off}, {off, 1, 0, true, on}, {hidden, 0, 0, false, hidden}, {on, 0, 2, false, on}};
    CustomHomeModeForm mode;
    EXPECT_EQ(labels(mode), "[][General.OnLabel][General.OffLabel][]");
    walk(mode, modes, GROUP_SYSTEM, "EnabledMode");
}

TEST(Forms, WarnBeforeWhatCanNotBeTakenBackLightly)
{
    MenuStore store(MenuStore::KEYS);
    const CustomHomeModeForm mode;
    const ProfileForm profile;
    for (int i : {-1, 0, 1, 2}) {
        EXPECT_FALSE(ScrollingForm().needsWarning(i));
        EXPECT_EQ(mode.needsWarning(i), i == 1);
        EXPECT_TRUE(profile.needsWarning(i));
    }
    EXPECT_EQ(mode.warningLabel() + mode.warningText(),
              "CustomHomeMode.WarningLabelOffCustomHomeMode.WarningOffText");
    EXPECT_EQ(profile.warningLabel() + profile.warningText(), "Profile.WarningLabelProfile.WarningText");
}

TEST(ProfileForm, ListsTheProfilesAndInstallsTheChosenOne)
{
    TestStore store;
    CoreStore& core = CoreStore::instance();
    setBoolSetting(GROUP_MENU, "Profile.visible", true);
    ApiProvider::instance();
    const struct
    {
        std::vector<OperatorPack::Profile> profiles;
        const char* inForce;
        const char* labels;
        int index;
        bool hasValue;     // whether a menu shows a second line,
        const char* value; // and which
        bool applies;      // whether the choice in force may be made again
    } cases[] = {
        {{{"1", "a"}, {"2", "b", false}}, "1", "[][a][DISABLE:b][]", 0, true, "a", false},
        {{{"1", "a", false}, {"2", "b"}}, "1", "[][DISABLE:a][b][]", 0, true, "", false},
        {{{"1", "a DISABLE:"}, {"2", "b"}}, "1", "[][a DISABLE:][b][]", 0, true, "a DISABLE:", false},
        {{{"1", "a"}, {"2", "b"}, {"3", "b"}}, "2", "[][a][b][b][]", 2, true, "b", false},
        {{}, "", "[][]", 0, false, "", false},
        {{{"1", "a", false}}, "1", "[][DISABLE:a][]", 0, false, "", true},
        {{{"1", "a"}}, "1", "[][a][]", 0, false, "a", true},
        {{{"1", "a"}, {"2", "b"}, {"3", "c"}}, "2", "[][a][b][c][]", 1, true, "b", false},
    };
    ProfileForm form;
    const FormAdapter adapter(&form);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.labels);
        OperatorPack pack;
        pack.profiles = c.profiles;
        core.installPack(pack);
        core.setCurrentProfile(c.inForce);
        EXPECT_EQ(adapter.hasValue(), c.hasValue); // reloads the form
        EXPECT_EQ(labels(form), c.labels);
        EXPECT_EQ(form.currentIndex(), c.index);
        EXPECT_EQ(adapter.valueText(), c.value);
        EXPECT_EQ(form.setValue(c.index), c.applies);
    }

    std::string inForce;
    core.addProfile({"4", "d", false});
    form.reload();
    EXPECT_TRUE(form.setValue(3)); // only the dialog minds that it is locked
    core.currentProfile(inForce);
    EXPECT_EQ(inForce, "4");
    core.removeProfile("1"); // since it was listed
    setIntSetting(GROUP_MENU, "ProfileSelected", 0);
    EXPECT_FALSE(form.setValue(4));
    EXPECT_TRUE(form.setValue(-1));
    EXPECT_EQ(getIntSetting(GROUP_MENU, "ProfileSelected"), 0);
    EXPECT_TRUE(form.setValue(0));
    EXPECT_EQ(getIntSetting(GROUP_MENU, "ProfileSelected"), 1);
    EXPECT_TRUE(form.setValue(2));
    core.currentProfile(inForce);
    EXPECT_EQ(inForce, "3");
    for (const char* allowed : {"true", "false"}) {
        core.setFact("user_select_profile", allowed);
        EXPECT_EQ(form.isHidden(), *allowed == 'f');
    }
}

} // namespace
