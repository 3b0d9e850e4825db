#include "EntryRegistry.h"

#include "FormEntry.h"
#include "HeadlineEntries.h"
#include "ProfileForm.h"
#include "SettingsForms.h"
#include "SettingsNodes.h"

EntryRegistry* EntryRegistry::instance()
{
    static EntryRegistry* const registry = new EntryRegistry;
    return registry;
}

EntryRegistry::EntryRegistry()
{
    add("SetupHeadlines", new NodeAdapter(new SetupHeadlinesNode), ENTRY_NODE);
    add("CustomHomeMode", new FormAdapter(new CustomHomeModeForm), ENTRY_FORM);
    add("AddNewChannel", new ChannelLink("AddNewChannel", "AddNewChannelURL"), ENTRY_LINK);
    add("HowToUse", new HowToUseAction, ENTRY_ACTION);
    add("ManageMyChannels", new ChannelLink("ManageMyChannels", "ManageChannelURL"), ENTRY_LINK);
    add("ConfigureHeadlines", new NodeAdapter(new ConfigureHeadlinesNode), ENTRY_NODE);
    add("Scrolling", new FormAdapter(new ScrollingForm), ENTRY_FORM);
    add("Download", new FormAdapter(new DownloadForm), ENTRY_FORM);
    add("Details", new NodeAdapter(new DetailsNode), ENTRY_NODE);
    add("Profile", new FormAdapter(new ProfileForm), ENTRY_FORM);
}

void EntryRegistry::add(const std::string& name, Entry* entry, int kind)
{
    mEntries[name] = entry;
    mKinds[entry] = kind;
}

Entry* EntryRegistry::find(const std::string& name) const
{
    const auto found = mEntries.find(name);
    return found == mEntries.end() ? nullptr : found->second;
}

int EntryRegistry::kindOf(const Entry* entry) const
{
    const auto found = mKinds.find(entry);
    return found == mKinds.end() ? ENTRY_UNREGISTERED : found->second;
}
