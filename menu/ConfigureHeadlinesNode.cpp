#include "ConfigureHeadlinesNode.h"

#include "MenuSettings.h"

bool ConfigureHeadlinesNode::isHidden() const
{
    return SettingsNode::isHidden() || MenuSettings::isServiceOff();
}

bool ConfigureHeadlinesNode::isEnabled() const
{
    return MenuSettings::isEnabled(mName);
}

void ConfigureHeadlinesNode::watchedKeys(std::set<std::string>& keys) const
{
    keys.insert(MenuSettings::watchedEnabledMode);
}
