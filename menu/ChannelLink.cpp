#include "ChannelLink.h"

#include "MenuSettings.h"
#include "SettingHelper.h"

ChannelLink::ChannelLink(const Keys& keys)
    : LinkEntry(getStringSetting(GROUP_NEWS_READER_UI, keys.url)), mName(keys.name)
{
}

bool ChannelLink::isHidden() const
{
    return !MenuSettings::isVisible(mName) || MenuSettings::isServiceOff();
}

bool ChannelLink::isEnabled() const
{
    return MenuSettings::isEnabled(mName);
}

std::string ChannelLink::label() const
{
    return MenuSettings::title(mName);
}

void ChannelLink::watchedKeys(std::set<std::string>& keys) const
{
    keys.insert(MenuSettings::watchedEnabledMode);
}
