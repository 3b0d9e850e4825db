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

// The sub-menu of the headlines' own settings; hidden while the service is off.
class ConfigureHeadlinesNode : public SettingsNode
{
public:
    ConfigureHeadlinesNode() : SettingsNode("ConfigureHeadlines", 0) {}

    bool isHidden() const override;
    bool isEnabled() const override;
    void watchedKeys(std::set<std::string>& keys) const override;
};

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
