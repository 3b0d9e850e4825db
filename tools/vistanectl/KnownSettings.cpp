#include "KnownSettings.h"

#include "MenuSettings.h"
#include "SettingHelper.h"

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
                       .values = {std::string(MenuSettings::modeOn), std::string(MenuSettings::modeOff),
                                  std::string(MenuSettings::modeHidden)}};

const KnownSetting settings[] = {
    {GROUP_MENU, "SetupHeadlines.visible", rootFlag, "SetupHeadlines"},
    {GROUP_MENU, "SetupHeadlines.enabled", flag, "SetupHeadlines"},
    {GROUP_MENU, "SetupHeadlines.title", text, "SetupHeadlines"},
    {GROUP_MENU, "SetupHeadlines.label", rootText, "SetupHeadlines"},
    {GROUP_MENU, "SetupHeadlines.ChildIDs", childList, "SetupHeadlines"},
    {GROUP_MENU, "TurnoffWarning.label", text, "SetupHeadlines"},
    {GROUP_MENU, "TurnoffWarning.text", text, "SetupHeadlines"},
    {GROUP_SYSTEM, "EnabledMode", mode,
     "SetupHeadlines, CustomHomeMode, HowToUse, AddNewChannel, ManageMyChannels, ConfigureHeadlines"},

    {GROUP_MENU, "CustomHomeMode.visible", flag, "CustomHomeMode"},
    {GROUP_MENU, "CustomHomeMode.enabled", flag, "CustomHomeMode"},
    {GROUP_MENU, "CustomHomeMode.title", text, "CustomHomeMode"},
    {GROUP_MENU, "CustomHomeMode.label", text, "CustomHomeMode"},
    {GROUP_MENU, "CustomHomeMode.InstructText", note, "CustomHomeMode"},
    {GROUP_MENU, "CustomHomeMode.WarningLabelOff", text, "CustomHomeMode"},
    {GROUP_MENU, "CustomHomeMode.WarningOffText", text, "CustomHomeMode"},
    {GROUP_MENU, "General.OnLabel", text, "CustomHomeMode"},
    {GROUP_MENU, "General.OffLabel", text, "CustomHomeMode, Scrolling"},

    {GROUP_MENU, "HowToUse.visible", flag, "HowToUse"},
    {GROUP_MENU, "HowToUse.enabled", flag, "HowToUse"},
    {GROUP_MENU, "HowToUse.title", text, "HowToUse"},

    {GROUP_MENU, "AddNewChannel.visible", flag, "AddNewChannel"},
    {GROUP_MENU, "AddNewChannel.enabled", flag, "AddNewChannel"},
    {GROUP_MENU, "AddNewChannel.title", text, "AddNewChannel"},
    {GROUP_NEWS_READER_UI, "AddNewChannelURL", text, "AddNewChannel"},

    {GROUP_MENU, "ManageMyChannels.visible", flag, "ManageMyChannels"},
    {GROUP_MENU, "ManageMyChannels.enabled", flag, "ManageMyChannels"},
    {GROUP_MENU, "ManageMyChannels.title", text, "ManageMyChannels"},
    {GROUP_NEWS_READER_UI, "ManageChannelURL", text, "ManageMyChannels"},

    {GROUP_MENU, "ConfigureHeadlines.visible", flag, "ConfigureHeadlines"},
    {GROUP_MENU, "ConfigureHeadlines.enabled", flag, "ConfigureHeadlines"},
    {GROUP_MENU, "ConfigureHeadlines.title", text, "ConfigureHeadlines"},
    {GROUP_MENU, "ConfigureHeadlines.label", text, "ConfigureHeadlines"},
    {GROUP_MENU, "ConfigureHeadlines.ChildIDs", childList, "ConfigureHeadlines"},

    {GROUP_MENU, "Scrolling.visible", flag, "Scrolling"},
    {GROUP_MENU, "Scrolling.enabled", flag, "Scrolling"},
    {GROUP_MENU, "Scrolling.title", text, "Scrolling"},
    {GROUP_MENU, "Scrolling.label", text, "Scrolling"},
    {GROUP_MENU, "Scrolling.InstructText", note, "Scrolling"},
    {GROUP_MENU, "Scrolling.FastLabel", text, "Scrolling"},
    {GROUP_MENU, "Scrolling.MediumLabel", text, "Scrolling"},
    {GROUP_MENU, "Scrolling.SlowLabel", text, "Scrolling"},
    {GROUP_NEWS_READER_UI, "ScrollingRate", scrollingRate, "Scrolling"},

    {GROUP_MENU, "Download.visible", flag, "Download"},
    {GROUP_MENU, "Download.enabled", flag, "Download"},
    {GROUP_MENU, "Download.title", text, "Download"},
    {GROUP_MENU, "Download.label", text, "Download"},
    {GROUP_MENU, "Download.InstructText", note, "Download"},
    {GROUP_MENU, "Download.AlwaysLabel", text, "Download, Details"},
    {GROUP_MENU, "Download.HomeLabel", text, "Download, Details"},
    {GROUP_MENU, "Download.NeverLabel", text, "Download, Details"},
    {GROUP_SERVICE, "DownloadOption", downloadOption, "Download, Details"},

    {GROUP_MENU, "Profile.visible", flag, "Profile"},
    {GROUP_MENU, "Profile.enabled", flag, "Profile"},
    {GROUP_MENU, "Profile.title", text, "Profile"},
    {GROUP_MENU, "Profile.label", text, "Profile"},
    {GROUP_CONNECTION_PROFILES, "instruction", note, "Profile"},
    {GROUP_MENU, "Profile.WarningLabel", text, "Profile"},
    {GROUP_MENU, "Profile.WarningText", text, "Profile"},
    {GROUP_MENU, "ProfileSelected", profileSelected, "CustomHomeMode, Scrolling, Download, Profile, Details"},

    {GROUP_MENU, "Details.visible", flag, "Details"},
    {GROUP_MENU, "Details.enabled", flag, "Details"},
    {GROUP_MENU, "Details.title", text, "Details"},
    {GROUP_MENU, "Details.label", text, "Details"},
    {GROUP_MENU, "Details.HomeNetworkLabel", text, "Details"},
    {GROUP_MENU, "Details.CurrentNetworkLabel", text, "Details"},
    {GROUP_MENU, "Details.DownloadOptionLabel", text, "Details"},
    {GROUP_MENU, "Details.RoamingStatusLabel", text, "Details"},
    {GROUP_MENU, "Details.CurrentActivityLabel", text, "Details"},
    {GROUP_MENU, "Details.LastConnectionLabel", text, "Details"},
    {GROUP_MENU, "Details.SubscriptionLabel", text, "Details"},
    {GROUP_MENU, "Details.MemoryLabel", text, "Details"},
    {GROUP_MENU, "Details.SuccessLabel", text, "Details"},
    {GROUP_MENU, "Details.FailedLabel", text, "Details"},
    {GROUP_MENU, "Details.CancelledLabel", text, "Details"},
    {GROUP_MENU, "Details.WrongVersionLabel", text, "Details"},
    {GROUP_MENU, "Details.ChannelsLabel", text, "Details"},
    {GROUP_MENU, "Details.DownloadingLabel", text, "Details"},
    {GROUP_MENU, "Details.NeverLabel", text, "Details"},
    {GROUP_MENU, "Details.IdleLabel", text, "Details"},
    {GROUP_MENU, "Details.InactiveLabel", text, "Details"},
    {GROUP_MENU, "Details.ContentMemoryLabel", text, "Details"},
    {GROUP_MENU, "Details.FreeMemoryLabel", text, "Details"},
    {GROUP_MENU, "Details.TotalMemoryLabel", text, "Details"},
    {GROUP_MENU, "Roaming.NonRoamingLabel", text, "Details"},
    {GROUP_MENU, "Roaming.RoamingLabel", text, "Details"},
    {GROUP_DCD, "RuntimeValues.LastUpdateTime", serviceNumber, "Details"},
    {GROUP_DCD, "RuntimeValues.LastUpdateResult", serviceText, "Details"},
    {GROUP_UI, "ManualRefresh", flag, "Details"},

    {GROUP_MENU, "ManRefresh.Option.Refresh", text, manualRefreshReader},
    {GROUP_MENU, "ManRefresh.Instruction.ConnectingToServer", text, manualRefreshReader},
    {GROUP_MENU, "ManRefresh.Instruction.DownloadingStories", text, manualRefreshReader},
    {GROUP_MENU, "ManRefresh.Instruction.DownloadSuccessed", successText, manualRefreshReader},
    {GROUP_MENU, "ManRefresh.Instruction.ServerError", text, manualRefreshReader},
    {GROUP_MENU, "ManRefresh.Instruction.AskTryAgain", text, manualRefreshReader},
    {GROUP_MENU, "ManRefresh.Instruction.Retry", text, manualRefreshReader},
    {GROUP_MENU, "Error.QueueErr", text, manualRefreshReader},
    {GROUP_DCD, "RuntimeValues.ItemsDownloaded", serviceNumber, manualRefreshReader},
    {GROUP_DCD, "RuntimeValues.BytesDownloaded", serviceNumber, manualRefreshReader},
};

} // namespace

std::span<const KnownSetting> knownSettings()
{
    return settings;
}
