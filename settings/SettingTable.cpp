#include "SettingTable.h"

#include "SettingHelper.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace {

constexpr size_t numberType = 0;
constexpr size_t flagType = 1;
constexpr size_t textType = 2;

using enum SettingRule::Content;

const SettingRule flag{flagType};
const SettingRule text{textType};
// A line that a dialog does without.
const SettingRule note{.type = textType, .mayBeEmpty = true};
const SettingRule childList{.type = textType, .content = EntryNames};
const SettingRule successText{.type = textType, .content = TwoPlaceholders};
// Of the root only a menu that names it would read these.
const SettingRule rootFlag{.type = flagType, .mayBeMissing = true};
const SettingRule rootText{.type = textType, .mayBeMissing = true, .mayBeEmpty = true};
// Written while the service runs.
const SettingRule serviceNumber{.type = numberType, .mayBeMissing = true};
const SettingRule serviceText{.type = textType, .mayBeMissing = true, .mayBeEmpty = true};

const SettingRule scrollingRate{.type = numberType, .values = {0, 1, 2, 3}};
const SettingRule downloadOption{.type = numberType, .values = {0, 1, 2}};
const SettingRule profileSelected{.type = numberType, .mayBeMissing = true, .values = {0, 1}};
const SettingRule mode{.type = textType,
                       .values = {std::string("ENABLED_NORMAL_MODE"), std::string("DISABLED_NORMAL_MODE"),
                                  std::string("HIDDEN_MODE")}};

const Setting setupHeadlinesSettings[] = {
    {GROUP_MENU, "SetupHeadlines.visible", rootFlag, "SetupHeadlines",
     "Whether another menu that names it lists it; the root opens anyway"},
    {GROUP_MENU, "SetupHeadlines.enabled", flag, "SetupHeadlines",
     "`false` greys it in another menu that names it"},
    {GROUP_MENU, "SetupHeadlines.title", text, "SetupHeadlines", "Caption of the first page"},
    {GROUP_MENU, "SetupHeadlines.label", rootText, "SetupHeadlines", "Its line in another menu that names it"},
    {GROUP_MENU, "SetupHeadlines.ChildIDs", childList, "SetupHeadlines", "Names of the entries, in menu order"},
    {GROUP_MENU, "TurnoffWarning.label", text, "SetupHeadlines",
     "Caption of the question at the start while the service is off"},
    {GROUP_MENU, "TurnoffWarning.text", text, "SetupHeadlines",
     "That question; yes switches the service on, no ends the menu"},
    {GROUP_SYSTEM, "EnabledMode", mode,
     "SetupHeadlines, CustomHomeMode, HowToUse, AddNewChannel, ManageMyChannels, ConfigureHeadlines",
     "`ENABLED_NORMAL_MODE`: the service is on. `DISABLED_NORMAL_MODE`: off, which hides help, channels and "
     "settings. `HIDDEN_MODE`: on, but help is hidden"},
};

const Setting customHomeModeSettings[] = {
    {GROUP_MENU, "CustomHomeMode.visible", flag, "CustomHomeMode", "Whether menus list it"},
    {GROUP_MENU, "CustomHomeMode.enabled", flag, "CustomHomeMode", "`false` shows it greyed"},
    {GROUP_MENU, "CustomHomeMode.title", text, "CustomHomeMode", "Caption of its page"},
    {GROUP_MENU, "CustomHomeMode.label", text, "CustomHomeMode", "Its line in a menu"},
    {GROUP_MENU, "CustomHomeMode.InstructText", note, "CustomHomeMode", "Line above the choices; may be empty"},
    {GROUP_MENU, "CustomHomeMode.WarningLabelOff", text, "CustomHomeMode",
     "Caption of the question before switching off"},
    {GROUP_MENU, "CustomHomeMode.WarningOffText", text, "CustomHomeMode", "That question"},
    {GROUP_MENU, "General.OnLabel", text, "CustomHomeMode", "Choice: on"},
    {GROUP_MENU, "General.OffLabel", text, "CustomHomeMode, Scrolling",
     "Choice: off; also the last choice of scrolling"},
};

const Setting howToUseSettings[] = {
    {GROUP_MENU, "HowToUse.visible", flag, "HowToUse", "Whether menus list it"},
    {GROUP_MENU, "HowToUse.enabled", flag, "HowToUse", "`false` shows it greyed"},
    {GROUP_MENU, "HowToUse.title", text, "HowToUse", "Its line in a menu"},
};

const Setting addNewChannelSettings[] = {
    {GROUP_MENU, "AddNewChannel.visible", flag, "AddNewChannel", "Whether menus list it"},
    {GROUP_MENU, "AddNewChannel.enabled", flag, "AddNewChannel", "`false` shows it greyed"},
    {GROUP_MENU, "AddNewChannel.title", text, "AddNewChannel", "Its line in a menu"},
    {GROUP_NEWS_READER_UI, "AddNewChannelURL", text, "AddNewChannel",
     "Link it opens, read once at the start; `@DEVICE_MODEL@`, `@DP_CLIENT_SW_VERSION@`, `@DPP_VERSION@` and "
     "`@MSISDN@` are filled in"},
};

const Setting manageMyChannelsSettings[] = {
    {GROUP_MENU, "ManageMyChannels.visible", flag, "ManageMyChannels", "Whether menus list it"},
    {GROUP_MENU, "ManageMyChannels.enabled", flag, "ManageMyChannels", "`false` shows it greyed"},
    {GROUP_MENU, "ManageMyChannels.title", text, "ManageMyChannels", "Its line in a menu"},
    {GROUP_NEWS_READER_UI, "ManageChannelURL", text, "ManageMyChannels", "Link it opens, likewise"},
};

const Setting configureHeadlinesSettings[] = {
    {GROUP_MENU, "ConfigureHeadlines.visible", flag, "ConfigureHeadlines", "Whether menus list it"},
    {GROUP_MENU, "ConfigureHeadlines.enabled", flag, "ConfigureHeadlines", "`false` shows it greyed"},
    {GROUP_MENU, "ConfigureHeadlines.title", text, "ConfigureHeadlines", "Caption of its page"},
    {GROUP_MENU, "ConfigureHeadlines.label", text, "ConfigureHeadlines", "Its line in a menu"},
    {GROUP_MENU, "ConfigureHeadlines.ChildIDs", childList, "ConfigureHeadlines",
     "Names of the entries, in menu order; a single one stands in the menu itself"},
};

const Setting scrollingSettings[] = {
    {GROUP_MENU, "Scrolling.visible", flag, "Scrolling", "Whether menus list it"},
    {GROUP_MENU, "Scrolling.enabled", flag, "Scrolling", "`false` shows it greyed"},
    {GROUP_MENU, "Scrolling.title", text, "Scrolling", "Caption of its page"},
    {GROUP_MENU, "Scrolling.label", text, "Scrolling", "Its line in a menu"},
    {GROUP_MENU, "Scrolling.InstructText", note, "Scrolling", "Line above the choices; may be empty"},
    {GROUP_MENU, "Scrolling.FastLabel", text, "Scrolling", "Choice: rate 3"},
    {GROUP_MENU, "Scrolling.MediumLabel", text, "Scrolling", "Choice: rate 2"},
    {GROUP_MENU, "Scrolling.SlowLabel", text, "Scrolling", "Choice: rate 1"},
    {GROUP_NEWS_READER_UI, "ScrollingRate", scrollingRate, "Scrolling",
     "The choice in force: `0` off, `1` slow, `2` medium, `3` fast"},
};

const Setting downloadSettings[] = {
    {GROUP_MENU, "Download.visible", flag, "Download", "Whether menus list it"},
    {GROUP_MENU, "Download.enabled", flag, "Download", "`false` shows it greyed"},
    {GROUP_MENU, "Download.title", text, "Download", "Caption of its page"},
    {GROUP_MENU, "Download.label", text, "Download", "Its line in a menu"},
    {GROUP_MENU, "Download.InstructText", note, "Download", "Line above the choices; may be empty"},
    {GROUP_MENU, "Download.AlwaysLabel", text, "Download, Details", "Choice: option 0"},
    {GROUP_MENU, "Download.HomeLabel", text, "Download, Details", "Choice: option 1"},
    {GROUP_MENU, "Download.NeverLabel", text, "Download, Details", "Choice: option 2"},
    {GROUP_SERVICE, "DownloadOption", downloadOption, "Download, Details",
     "The choice in force: `0` always, `1` at home only, `2` never"},
};

const Setting profileSettings[] = {
    {GROUP_MENU, "Profile.visible", flag, "Profile", "Whether menus list it"},
    {GROUP_MENU, "Profile.enabled", flag, "Profile", "`false` shows it greyed"},
    {GROUP_MENU, "Profile.title", text, "Profile", "Caption of its page"},
    {GROUP_MENU, "Profile.label", text, "Profile", "Its line in a menu"},
    {GROUP_CONNECTION_PROFILES, "instruction", note, "Profile", "Line above the choices; may be empty"},
    {GROUP_MENU, "Profile.WarningLabel", text, "Profile", "Caption of the question before a profile is taken"},
    {GROUP_MENU, "Profile.WarningText", text, "Profile", "That question"},
    {GROUP_MENU, "ProfileSelected", profileSelected, "CustomHomeMode, Scrolling, Download, Profile, Details",
     "`1` once the user has taken a profile, which greys all of these; `0` lets the user set them again"},
};

const Setting detailsSettings[] = {
    {GROUP_MENU, "Details.visible", flag, "Details", "Whether menus list it"},
    {GROUP_MENU, "Details.enabled", flag, "Details", "`false` shows it greyed"},
    {GROUP_MENU, "Details.title", text, "Details", "Caption of its page"},
    {GROUP_MENU, "Details.label", text, "Details", "Its line in a menu"},
    {GROUP_MENU, "Details.HomeNetworkLabel", text, "Details", "Heading: home network"},
    {GROUP_MENU, "Details.CurrentNetworkLabel", text, "Details", "Heading: current network"},
    {GROUP_MENU, "Details.DownloadOptionLabel", text, "Details", "Heading: download option"},
    {GROUP_MENU, "Details.RoamingStatusLabel", text, "Details", "Heading: roaming"},
    {GROUP_MENU, "Details.CurrentActivityLabel", text, "Details", "Heading: what the service is doing"},
    {GROUP_MENU, "Details.LastConnectionLabel", text, "Details", "Heading: last update"},
    {GROUP_MENU, "Details.SubscriptionLabel", text, "Details", "Heading: number and titles of the channels"},
    {GROUP_MENU, "Details.MemoryLabel", text, "Details", "Heading: memory"},
    {GROUP_MENU, "Details.SuccessLabel", text, "Details", "Last update: went well"},
    {GROUP_MENU, "Details.FailedLabel", text, "Details", "Last update: failed"},
    {GROUP_MENU, "Details.CancelledLabel", text, "Details", "Last update: given up by the user"},
    {GROUP_MENU, "Details.WrongVersionLabel", text, "Details", "Last update: refused, the software is too old"},
    {GROUP_MENU, "Details.ChannelsLabel", text, "Details", "Stands behind the number of channels"},
    {GROUP_MENU, "Details.DownloadingLabel", text, "Details", "Activity: downloading"},
    {GROUP_MENU, "Details.NeverLabel", text, "Details", "Activity: none, downloads are off"},
    {GROUP_MENU, "Details.IdleLabel", text, "Details", "Activity: none at the moment"},
    {GROUP_MENU, "Details.InactiveLabel", text, "Details", "Activity: none, the network in use is not allowed"},
    {GROUP_MENU, "Details.ContentMemoryLabel", text, "Details", "Stands before the memory in use"},
    {GROUP_MENU, "Details.FreeMemoryLabel", text, "Details", "Stands before the free memory"},
    {GROUP_MENU, "Details.TotalMemoryLabel", text, "Details", "Stands before all memory"},
    {GROUP_MENU, "Roaming.NonRoamingLabel", text, "Details", "Roaming: no"},
    {GROUP_MENU, "Roaming.RoamingLabel", text, "Details", "Roaming: yes"},
    {GROUP_DCD, "RuntimeValues.LastUpdateTime", serviceNumber, "Details",
     "Written by the service: seconds since 1970, UTC"},
    {GROUP_DCD, "RuntimeValues.LastUpdateResult", serviceText, "Details",
     "Written by the service: `SUCCESS`, `FAILED`, `CANCELLED` or `WRONG_VERSION`"},
    {GROUP_UI, "ManualRefresh", flag, "Details", "Whether the page offers a refresh by hand"},
};

const Setting refreshSettings[] = {
    {GROUP_MENU, "ManRefresh.Option.Refresh", text, manualRefreshReader, "Caption while a refresh runs"},
    {GROUP_MENU, "ManRefresh.Instruction.ConnectingToServer", text, manualRefreshReader, "While it connects"},
    {GROUP_MENU, "ManRefresh.Instruction.DownloadingStories", text, manualRefreshReader, "While it downloads"},
    {GROUP_MENU, "ManRefresh.Instruction.DownloadSuccessed", successText, manualRefreshReader,
     "When it is done; `%1` becomes the number of stories, `%2` the kilobytes, and the characters `\\n` a line "
     "break"},
    {GROUP_MENU, "ManRefresh.Instruction.ServerError", text, manualRefreshReader, "Caption when it failed"},
    {GROUP_MENU, "ManRefresh.Instruction.AskTryAgain", text, manualRefreshReader, "Question when it failed"},
    {GROUP_MENU, "ManRefresh.Instruction.Retry", text, manualRefreshReader, "Left soft key of that question"},
    {GROUP_MENU, "Error.QueueErr", text, manualRefreshReader, "When a refresh is waiting already"},
    {GROUP_DCD, "RuntimeValues.ItemsDownloaded", serviceNumber, manualRefreshReader,
     "Written by the service: stories"},
    {GROUP_DCD, "RuntimeValues.BytesDownloaded", serviceNumber, manualRefreshReader,
     "Written by the service: bytes"},
};

const SettingSection sections[] = {
    {"SetupHeadlines: the root", setupHeadlinesSettings},
    {"CustomHomeMode: headlines on and off", customHomeModeSettings},
    {"HowToUse: help", howToUseSettings},
    {"AddNewChannel: a link", addNewChannelSettings},
    {"ManageMyChannels: a link", manageMyChannelsSettings},
    {"ConfigureHeadlines: the sub-menu of settings", configureHeadlinesSettings},
    {"Scrolling: speed of the headlines", scrollingSettings},
    {"Download: when to download", downloadSettings},
    {"Profile: the operator's profiles", profileSettings},
    {"Details: the page of facts", detailsSettings},
    {"Manual refresh: pop-ups of the page of facts", refreshSettings},
};

} // namespace

std::span<const SettingSection> settingTable()
{
    return sections;
}

const std::vector<Setting>& knownSettings()
{
    static const std::vector<Setting> all = [] {
        std::vector<Setting> settings;
        for (const SettingSection& section : sections)
            std::copy(section.settings.begin(), section.settings.end(), std::back_inserter(settings));
        return settings;
    }();
    return all;
}
