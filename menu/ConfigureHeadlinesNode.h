#pragma once

#include "MenuNode.h"

// The sub-menu of the headlines' own settings; hidden while the service is off.
class ConfigureHeadlinesNode : public MenuNode
{
public:
    ConfigureHeadlinesNode() : MenuNode("ConfigureHeadlines", 0) {}

    bool isHidden() const override;
    bool isEnabled() const override;
    std::string title() const override;
    std::string label() const override;
    void watchedKeys(std::set<std::string>& keys) const override;
};
