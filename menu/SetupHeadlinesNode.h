#pragma once

#include "MenuNode.h"

// The root menu. While the service is off it is disabled, and opening it asks to switch the service on.
class SetupHeadlinesNode : public MenuNode
{
public:
    SetupHeadlinesNode() : MenuNode("SetupHeadlines", 0) {}

    bool isHidden() const override;
    bool isEnabled() const override;
    std::string title() const override;
    std::string label() const override;
    std::string warningLabel() const override;
    std::string warningText() const override;
    bool needsWarning() const override;
    void acceptWarning() override;
    void watchedKeys(std::set<std::string>& keys) const override;

private:
    const bool mWarnWhenOff = true;
};
