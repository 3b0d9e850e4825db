#include "ProfileForm.h"

#include "ApiRegistry.h"
#include "MenuSettings.h"
#include "SettingHelper.h"

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
