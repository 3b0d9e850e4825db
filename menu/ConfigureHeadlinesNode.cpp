#include "ConfigureHeadlinesNode.h"

#include "MenuSettings.h"

bool ConfigureHeadlinesNode::isHidden() const
{
    return !MenuSettings::isVisible(mName) || MenuSettings::isServiceOff();
}

bool ConfigureHeadlinesNode::isEnabled() const
{
    return MenuSettings::isEnabled(mName);
}

std::string ConfigureHeadlinesNode::title() const
{
    return MenuSettings::title(mName);
}

std::string ConfigureHeadlinesNode::label() const
{
    return MenuSettings::label(mName);
}

void ConfigureHeadlinesNode::watchedKeys(std::set<std::string>& keys) const
{
    keys.insert(MenuSettings::watchedEnabledMode);
}
