#pragma once

#include "MenuNode.h"

// The page of facts about the service. Its children are fixed, and owned.
class DetailsNode : public MenuNode
{
public:
    DetailsNode();
    ~DetailsNode() override;

    bool isHidden() const override;
    bool isEnabled() const override;
    std::string title() const override;
    std::string label() const override;
    void clearChildren() override {}
    void loadChildren() override {}
    void watchedKeys(std::set<std::string>& keys) const override;
};
