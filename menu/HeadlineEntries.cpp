#include "HeadlineEntries.h"

#include "MenuSettings.h"
#include "SettingHelper.h"

namespace {
constexpr char howToUse[] = "HowToUse";
}

ChannelLink::ChannelLink(const char* name, const char* urlKey)
    : LinkEntry(getStringSetting(GROUP_NEWS_READER_UI, urlKey)), mName(name)
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

bool HowToUseAction::isHidden() const
{
    if (!MenuSettings::isVisible(howToUse))
        return true;
    const std::string mode = MenuSettings::enabledMode();
    return mode == MenuSettings::modeHidden || mode == MenuSettings::modeOff;
}

bool HowToUseAction::isEnabled() const
{
    return MenuSettings::isEnabled(howToUse);
}

std::string HowToUseAction::label() const
{
    return MenuSettings::title(howToUse);
}

void HowToUseAction::watchedKeys(std::set<std::string>& keys) const
{
    keys.insert(MenuSettings::watchedEnabledMode);
}
