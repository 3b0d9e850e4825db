#include "SetupHeadlinesNode.h"

#include "MenuSettings.h"

bool SetupHeadlinesNode::isEnabled() const
{
    return MenuSettings::isEnabled(mName) && !MenuSettings::isServiceOff();
}

std::string SetupHeadlinesNode::warningLabel() const
{
    return MenuSettings::text("TurnoffWarning.label");
}

std::string SetupHeadlinesNode::warningText() const
{
    return MenuSettings::text("TurnoffWarning.text");
}

bool SetupHeadlinesNode::needsWarning() const
{
    return mWarnWhenOff && MenuSettings::isServiceOff();
}

void SetupHeadlinesNode::acceptWarning()
{
    MenuSettings::setEnabledMode(MenuSettings::modeOn);
}

void SetupHeadlinesNode::watchedKeys(std::set<std::string>& keys) const
{
    keys.insert(MenuSettings::watchedEnabledMode);
}
