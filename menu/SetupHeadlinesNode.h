#pragma once

#include "SettingsNode.h"

// The root menu. While the service is off it is disabled, and opening it asks to switch the service on.
class SetupHeadlinesNode : public SettingsNode
{
public:
    SetupHeadlinesNode() : SettingsNode("SetupHeadlines", 0) {}

    bool isEnabled() const override;
    std::string warningLabel() const override;
    std::string warningText() const override;
    bool needsWarning() const override;
    void acceptWarning() override;
    void watchedKeys(std::set<std::string>& keys) const override;

private:
    const bool mWarnWhenOff = true;
};
