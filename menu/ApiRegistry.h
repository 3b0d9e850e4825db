#pragma once

#include <map>
#include <string>

// The functions that entries reach by name, in four sections; a name answers only in the section it was added
// to. Process-wide, never destroyed; empty until the ApiProvider is built.
class ApiRegistry
{
public:
    using Text = std::string (*)();   // a UTF-8 text to show
    using Action = void (*)();        // something to do
    using Setter = void (*)(int);     // takes the index of a choice
    using HidePredicate = bool (*)(); // true: hide the entry

    static ApiRegistry* instance();

    virtual ~ApiRegistry() = default;

    // A name that its section has already goes to the new function.
    void add(const std::string& name, Text function) { mTexts[name] = function; }
    void add(const std::string& name, Action function) { mActions[name] = function; }
    void add(const std::string& name, Setter function) { mSetters[name] = function; }
    void add(const std::string& name, HidePredicate function) { mHidePredicates[name] = function; }

    std::string text(const std::string& name) const;    // empty when there is no such text
    void act(const std::string& name) const;            // nothing when there is no such action
    void set(const std::string& name, int index) const; // nothing when there is no such setter
    bool isHidden(const std::string& name) const;       // false when there is no such predicate

private:
    std::map<std::string, Text> mTexts;
    std::map<std::string, Action> mActions;
    std::map<std::string, Setter> mSetters;
    std::map<std::string, HidePredicate> mHidePredicates;
};
