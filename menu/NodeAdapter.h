#pragma once

#include "Entry.h"
#include "MenuNode.h"

// A menu node as a line of another menu.
class NodeAdapter : public Entry
{
public:
    explicit NodeAdapter(MenuNode* node) : mNode(node) {} // not owned

    bool isHidden() const override { return mNode->isHidden(); }
    bool isEnabled() const override { return mNode->isEnabled(); }
    std::string label() const override { return mNode->label(); }
    void watchedKeys(std::set<std::string>& keys) const override { mNode->watchedKeys(keys); }

    virtual MenuNode* node() const { return mNode; }

private:
    MenuNode* const mNode;
};
