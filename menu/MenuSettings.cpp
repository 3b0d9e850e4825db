#include "MenuSettings.h"

#include "SettingHelper.h"

namespace MenuSettings {

std::string text(const std::string& key)
{
    return getStringSetting(GROUP_MENU, key.c_str());
}

std::string title(const std::string& name)
{
    return text(name + ".title");
}

std::string label(const std::string& name)
{
    return text(name + ".label");
}

bool isVisible(const std::string& name)
{
    return getBoolSetting(GROUP_MENU, (name + ".visible").c_str());
}

bool isEnabled(const std::string& name)
{
    return getBoolSetting(GROUP_MENU, (name + ".enabled").c_str());
}

bool isEnabledWithoutProfile(const std::string& name)
{
    return isEnabled(name) && getIntSetting(GROUP_MENU, profileSelectedKey) != 1;
}

std::string enabledMode()
{
    return getStringSetting(GROUP_SYSTEM, enabledModeKey);
}

void setEnabledMode(const std::string& mode)
{
    setStringSetting(GROUP_SYSTEM, enabledModeKey, mode);
}

bool isServiceOff()
{
    return enabledMode() == modeOff;
}

} // namespace MenuSettings
