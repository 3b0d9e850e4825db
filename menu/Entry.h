#pragma once

#include <set>
#include <string>
#include <utility>

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

// An entry that opens a link.
class LinkEntry : public Entry
{
public:
    virtual const std::string& url() const { return mUrl; }

protected:
    explicit LinkEntry(std::string url) : mUrl(std::move(url)) {}

private:
    const std::string mUrl;
};

// An entry that calls a named action of the ApiRegistry. A name that is not registered does nothing.
class ActionEntry : public Entry
{
public:
    ActionEntry(const std::string& apiName, const std::string& label);

    bool isHidden() const override { return false; }
    bool isEnabled() const override { return true; }
    std::string label() const override { return mLabel; }

    // Calls the action; nothing unless mArgMode is 0.
    virtual void invoke();
    // Calls the setter with `v`; nothing unless mArgMode is 1.
    virtual void invoke(int v);

    std::string mApiName;
    int mArgMode = 0; // 0: the action takes no argument; 1: it takes mArg
    int mArg = 0;
    std::string mLabel;
};
