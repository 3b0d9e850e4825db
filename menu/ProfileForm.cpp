#include "ProfileForm.h"

#include "ApiRegistry.h"
#include "ListText.h"
#include "MenuSettings.h"
#include "NR_OpProfile.h"
#include "SettingHelper.h"
#include "vtString.h"

#include <sstream>
#include <vector>

namespace {

std::vector<vtTypes::String> listed; // as of the last list()

NR_OpProfile& operatorProfile()
{
    static NR_OpProfile* const profile = new NR_OpProfile;
    return *profile;
}

std::string nameOf(const vtTypes::String& profile)
{
    vtTypes::String name;
    operatorProfile().getOpLanguageString(profile, name);
    return ListText::oneLine(vtStringToUtf8(name));
}

} // namespace

ApiOptionForm::ApiOptionForm(const char* name, const std::string& listApi, const std::string& currentApi,
                             const std::string& setApi)
    : SettingsForm(name), mListApi(listApi), mCurrentApi(currentApi), mSetApi(setApi)
{
}

void ApiOptionForm::reload()
{
    mOptions.clear();
    mCurrentIndex = 0;
    const ApiRegistry& apis = *ApiRegistry::instance();
    std::istringstream list(apis.text(mListApi));
    const std::string current = apis.text(mCurrentApi);
    std::string line;
    for (int i = 0; std::getline(list, line); ++i) {
        if (line == current)
            mCurrentIndex = i;
        mOptions[i] = line;
    }
}

int ApiOptionForm::optionCount() const
{
    return static_cast<int>(mOptions.size());
}

std::string ApiOptionForm::optionLabel(int i) const
{
    const auto found = mOptions.find(i);
    return found == mOptions.end() ? std::string() : found->second;
}

bool ApiOptionForm::setValue(int i)
{
    if (!isChange(i))
        return false;
    ApiRegistry::instance()->set(mSetApi, i);
    return true;
}

ProfileForm::ProfileForm() : ApiOptionForm("Profile", "PROFILE_API", "CURRENT_PROFILE_API", "SET_PROFILE_API")
{
    mWarnOnOff = true;
}

bool ProfileForm::isHidden() const
{
    return SettingsForm::isHidden() || ApiRegistry::instance()->isHidden("HIDE_PROFILE_API");
}

std::string ProfileForm::instructText() const
{
    return getStringSetting(GROUP_CONNECTION_PROFILES, "instruction");
}

std::string ProfileForm::warningLabel() const
{
    return MenuSettings::text("Profile.WarningLabel");
}

std::string ProfileForm::warningText() const
{
    return MenuSettings::text("Profile.WarningText");
}

bool ProfileForm::needsWarning(int /*i*/) const
{
    return mWarnOnOff;
}

namespace ProfileChoice {

void prepare()
{
    operatorProfile();
}

std::string list()
{
    std::vector<bool> flags;
    if (operatorProfile().getSelectableProfiles(listed, flags) != 0)
        listed.clear();
    std::string lines;
    for (size_t i = 0; i < listed.size(); ++i) {
        const bool selectable = i < flags.size() && flags[i];
        lines += ListText::choice(nameOf(listed[i]), selectable) + '\n';
    }
    return lines;
}

std::string current()
{
    return nameOf(operatorProfile().getCurrentProfile());
}

void choose(int i)
{
    if (i < 0 || static_cast<size_t>(i) >= listed.size())
        return;
    setIntSetting(GROUP_MENU, MenuSettings::profileSelectedKey, 1);
    operatorProfile().installProfile(listed[i]);
}

bool isFixed()
{
    return !operatorProfile().isUserSelectProfile();
}

} // namespace ProfileChoice
