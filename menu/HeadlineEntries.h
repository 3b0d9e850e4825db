#pragma once

#include "Entry.h"

// A link to a page of the headline channels; hidden while the service is off. The link is read once, so a new
// one holds from the next start. Made and named by EntryRegistry; one more needs its settings in SettingTable, its texts
// in the packs, and its name in a menu's child list.
class ChannelLink : public LinkEntry
{
public:
    // `name` begins the keys of the entry's settings and is kept, not copied; `urlKey` is the key of its link in
    // the news reader's group.
    ChannelLink(const char* name, const char* urlKey);

    bool isHidden() const override;
    bool isEnabled() const override;
    std::string label() const override;
    void watchedKeys(std::set<std::string>& keys) const override;

private:
    const char* const mName;
};

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
