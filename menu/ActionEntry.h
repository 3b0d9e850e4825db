#pragma once

#include "Entry.h"

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
