#pragma once

#include "SettingsNode.h"

// The page of facts about the service. Its children are fixed, and owned.
class DetailsNode : public SettingsNode
{
public:
    DetailsNode();
    ~DetailsNode() override;

    bool isEnabled() const override;
    void clearChildren() override {}
    void loadChildren() override {}
    void watchedKeys(std::set<std::string>& keys) const override;
};
