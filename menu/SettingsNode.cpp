#include "SettingsNode.h"

#include "MenuSettings.h"

bool SettingsNode::isHidden() const
{
    return !MenuSettings::isVisible(mName);
}

std::string SettingsNode::title() const
{
    return MenuSettings::title(mName);
}

std::string SettingsNode::label() const
{
    return MenuSettings::label(mName);
}
