#pragma once

#include <map>
#include <string>

class Entry;

// What selecting an entry does. Of each kind, the registered object is of one class.
enum EntryKind {
    ENTRY_ACTION = 0,       // ActionEntry: call its action
    ENTRY_UNREGISTERED = 1, // any other object: nothing
    ENTRY_FORM = 2,         // FormAdapter: open its form
    ENTRY_NODE = 3,         // NodeAdapter: open its node, as a menu or as a page of details
    ENTRY_LINK = 4,         // LinkEntry: open its link
};

// The entries that menus can name. Process-wide, and never destroyed, nor are its entries.
class EntryRegistry
{
public:
    // Made on first use with all the entries there are, some of which read settings; build the ApiProvider
    // first.
    static EntryRegistry* instance();

    virtual ~EntryRegistry() = default;
    EntryRegistry(const EntryRegistry&) = delete;
    EntryRegistry& operator=(const EntryRegistry&) = delete;

    // The entry is not owned and must live as long as the process. A name that is registered already goes to
    // the new entry; the old one keeps its kind.
    void add(const std::string& name, Entry* entry, int kind);

    // The entry of that name, or null. Names are compared exactly, case included.
    Entry* find(const std::string& name) const;

    // An EntryKind; ENTRY_UNREGISTERED for an unknown entry and for null.
    int kindOf(const Entry* entry) const;

private:
    EntryRegistry();

    std::map<std::string, Entry*> mEntries;
    std::map<const Entry*, int> mKinds;
};
