#pragma once

#include "MenuNode.h"

// A menu whose flag and texts are the settings that begin with its name.
class SettingsNode : public MenuNode
{
public:
    using MenuNode::MenuNode;

    bool isHidden() const override;
    std::string title() const override;
    std::string label() const override;
};
