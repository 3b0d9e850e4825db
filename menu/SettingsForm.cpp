#include "SettingsForm.h"

#include "MenuSettings.h"

bool SettingsForm::isHidden() const
{
    return !MenuSettings::isVisible(mName);
}

bool SettingsForm::isEnabled() const
{
    return MenuSettings::isEnabledWithoutProfile(mName);
}

std::string SettingsForm::title() const
{
    return MenuSettings::title(mName);
}

std::string SettingsForm::label() const
{
    return MenuSettings::label(mName);
}
