#include "ProfileForm.h"

#include "ApiRegistry.h"
#include "MenuSettings.h"
#include "SettingHelper.h"

namespace {
constexpr char name[] = "Profile";
}

ProfileForm::ProfileForm() : ApiOptionForm("PROFILE_API", "CURRENT_PROFILE_API", "SET_PROFILE_API")
{
    mWarnOnOff = true;
}

bool ProfileForm::isHidden() const
{
    return !MenuSettings::isVisible(name) || ApiRegistry::instance()->isHidden("HIDE_PROFILE_API");
}

bool ProfileForm::isEnabled() const
{
    return MenuSettings::isEnabledWithoutProfile(name);
}

std::string ProfileForm::title() const
{
    return MenuSettings::title(name);
}

std::string ProfileForm::instructText() const
{
    return getStringSetting(GROUP_CONNECTION_PROFILES, "instruction");
}

std::string ProfileForm::label() const
{
    return MenuSettings::label(name);
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
