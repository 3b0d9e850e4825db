#pragma once

#include <set>
#include <string>

// One line of a menu. Entries answer from the settings store whenever they are asked, so whoever shows them
// asks again after a change. They are made with the EntryRegistry and live as long as the process. Texts are
// UTF-8.
class Entry
{
public:
    virtual ~Entry() = default;

    virtual bool isHidden() const = 0;  // true keeps the entry out of every list
    virtual bool isEnabled() const = 0; // false shows it greyed and not selectable
    virtual std::string label() const = 0;
    virtual bool hasValue() const { return false; } // true adds a second line, the valueText()
    virtual std::string valueText() const { return {}; }

    // Adds the qualified names of the settings on which the answers depend: "VtCore.System.EnabledMode".
    virtual void watchedKeys(std::set<std::string>& /*keys*/) const {}
};
