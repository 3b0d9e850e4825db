#pragma once

#include "ActionEntry.h"

// Asks the service for its help page; hidden unless the service is on.
class HowToUseAction : public ActionEntry
{
public:
    HowToUseAction() : ActionEntry("HOW_TO_USE_API", "") {}

    bool isHidden() const override;
    bool isEnabled() const override;
    std::string label() const override;
    void watchedKeys(std::set<std::string>& keys) const override;
};
