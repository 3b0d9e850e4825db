#include "HowToUseAction.h"

#include "MenuSettings.h"

namespace {
constexpr char name[] = "HowToUse";
}

bool HowToUseAction::isHidden() const
{
    if (!MenuSettings::isVisible(name))
        return true;
    const std::string mode = MenuSettings::enabledMode();
    return mode == MenuSettings::modeHidden || mode == MenuSettings::modeOff;
}

bool HowToUseAction::isEnabled() const
{
    return MenuSettings::isEnabled(name);
}

std::string HowToUseAction::label() const
{
    return MenuSettings::title(name);
}

void HowToUseAction::watchedKeys(std::set<std::string>& keys) const
{
    keys.insert(MenuSettings::watchedEnabledMode);
}
