#pragma once

#include "LinkEntry.h"

// A link to a page of the headline channels; hidden while the service is off. The link is read once, so a new
// one holds from the next start.
class ChannelLink : public LinkEntry
{
public:
    bool isHidden() const override;
    bool isEnabled() const override;
    std::string label() const override;
    void watchedKeys(std::set<std::string>& keys) const override;

protected:
    // The name that the entry's settings begin with, and the key of its link in the news reader's group.
    struct Keys
    {
        const char* name;
        const char* url;
    };

    explicit ChannelLink(const Keys& keys);

private:
    const char* const mName;
};

class AddNewChannelLink : public ChannelLink
{
public:
    AddNewChannelLink() : ChannelLink({"AddNewChannel", "AddNewChannelURL"}) {}
};

class ManageMyChannelsLink : public ChannelLink
{
public:
    ManageMyChannelsLink() : ChannelLink({"ManageMyChannels", "ManageChannelURL"}) {}
};
