#pragma once

#include "Entry.h"

#include <vector>

// A menu: a title and a list of entries, which are those that the operator's setting "NAME.ChildIDs" names.
// Texts are UTF-8.
class MenuNode
{
public:
    // `name` is the one under which the node is registered. A non-zero `detailsFlag` makes it a page of
    // details.
    MenuNode(const std::string& name, int detailsFlag);
    virtual ~MenuNode() = default;
    MenuNode(const MenuNode&) = delete;
    MenuNode& operator=(const MenuNode&) = delete;

    virtual bool isHidden() const = 0;
    virtual bool isEnabled() const = 0;
    virtual std::string title() const = 0; // caption of the window that shows the node
    virtual std::string label() const = 0; // the node's line in its parent menu

    // The children are read anew by clearing and then loading; loading alone appends. Entries that are hidden
    // or unknown are left out, and a sub-menu with exactly one child stands as that child. Loading loads the
    // sub-menus below too, except one that is being loaded already: a menu that leads back to itself is listed,
    // not followed.
    virtual void clearChildren();
    virtual void loadChildren();

    // The warning before a disabled node opens, when needsWarning(); acceptWarning() is called once it is
    // accepted.
    virtual std::string warningLabel() const { return {}; }
    virtual std::string warningText() const { return {}; }
    virtual bool needsWarning() const { return false; }
    virtual void acceptWarning() {}

    virtual void watchedKeys(std::set<std::string>& /*keys*/) const {} // as for Entry

    const std::string mName;
    std::vector<Entry*> mChildren; // in menu order; not owned
    const int mDetailsFlag;        // 0: a menu list; otherwise a page of details
};

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

// The names in a child list, which commas separate. Spaces around a name don't count, nor do empty names.
std::vector<std::string> childNames(const std::string& list);

// Takes the spaces (no other white space) off both ends of a zero-terminated text, in place. Null is left
// alone.
void trimSpaces(char* text);
