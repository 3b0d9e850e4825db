#pragma once

#include "SettingsNode.h"

// The sub-menu of the headlines' own settings; hidden while the service is off.
class ConfigureHeadlinesNode : public SettingsNode
{
public:
    ConfigureHeadlinesNode() : SettingsNode("ConfigureHeadlines", 0) {}

    bool isHidden() const override;
    bool isEnabled() const override;
    void watchedKeys(std::set<std::string>& keys) const override;
};
