#include "StatusValues.h"

#include "ListText.h"
#include "MenuSettings.h"
#include "NR_Constants.h"
#include "NR_ContentCache.h"
#include "NR_EngineUtils.h"
#include "SettingHelper.h"
#include "SettingsForms.h"
#include "Vt_Event.h"
#include "Vt_EventAndStatusFacade.h"
#include "vtString.h"

#include <cstdio>
#include <ctime>

namespace {

using MenuSettings::text;

constexpr struct
{
    const char* result;
    const char* labelKey;
} updateResults[] = {
    {"SUCCESS", "Details.SuccessLabel"},
    {"FAILED", "Details.FailedLabel"},
    {"CANCELLED", "Details.CancelledLabel"},
    {"WRONG_VERSION", "Details.WrongVersionLabel"},
};

// As people of the local time zone write it: "2008-03-07 14:05:09".
std::string localTime(int seconds)
{
    tzset(); // localtime_r() need not look at the time zone itself
    const std::time_t time = seconds;
    std::tm date{};
    localtime_r(&time, &date);
    char buffer[80]; // more than six numbers of any size
    std::snprintf(buffer, sizeof buffer, "%d-%02d-%02d %02d:%02d:%02d", date.tm_year + 1900, date.tm_mon + 1,
                  date.tm_mday, date.tm_hour, date.tm_min, date.tm_sec);
    return buffer;
}

std::string updateResultLabel(const std::string& result)
{
    for (const auto& known : updateResults) {
        if (result == known.result)
            return text(known.labelKey);
    }
    return {};
}

std::string networkName(int (Vt_EventAndStatusFacade::*get)(vtTypes::String&))
{
    vtTypes::String name;
    const int status = (Vt_EventAndStatusFacade::instance()->*get)(name);
    return status == 0 ? vtStringToUtf8(name) : std::string();
}

std::string memoryLine(const char* labelKey, const std::string& memoryText)
{
    return text(labelKey) + ' ' + memoryText + '\n';
}

} // namespace

namespace StatusValues {

State& state()
{
    static State* const state = new State;
    return *state;
}

void follow(const Vt_Event& event)
{
    State& known = state();
    if (event.name() == NR_Constants::EVENT_NOTIFY_NETWORK_UPDATE_STARTED) {
        known.updateInProgress = true;
    } else if (event.name() == NR_Constants::EVENT_NOTIFY_NETWORK_UPDATE_COMPLETED) {
        known.updateInProgress = false;
    } else if (event.name() == NR_Constants::EVENT_NOTIFY_STORAGE_STATUS && event.parameters()) {
        for (const auto& [key, value] : *event.parameters()) {
            if (key == "total")
                known.totalMemoryText = value;
            else if (key == "free")
                known.freeMemoryText = value;
            else if (key == "used")
                known.usedMemoryText = value;
        }
    }
}

std::string lastConnection()
{
    const std::string when = localTime(getIntSetting(GROUP_DCD, "RuntimeValues.LastUpdateTime"));
    return when + '\n' + updateResultLabel(getStringSetting(GROUP_DCD, "RuntimeValues.LastUpdateResult"));
}

std::string subscription()
{
    NR_ContentCache& cache = *NR_ContentCache::getInstance();
    Container container;
    if (cache.get(vtTypes::ID("container1"), container) != 0)
        return {};
    int count = 0;
    std::string names;
    for (const vtTypes::ID& id : container.children) {
        Channel channel(id);
        if (cache.get(id, channel) != 0)
            continue;
        ++count;
        names += ListText::oneLine(vtStringToUtf8(channel.title)) + '\n';
    }
    return std::to_string(count) + ' ' + text("Details.ChannelsLabel") + '\n' + names;
}

std::string homeNetwork()
{
    return networkName(&Vt_EventAndStatusFacade::getHomeNetworkName);
}

std::string currentNetwork()
{
    return networkName(&Vt_EventAndStatusFacade::getCurrentNetworkName);
}

std::string downloadMode()
{
    int option = 0;
    const int status = NR_EngineUtils::getDownloadOptionSetting(option);
    const char* labelKey = status == 0 ? DownloadForm::labelKey(option) : nullptr;
    return labelKey ? text(labelKey) : "Can not get Download Mode";
}

std::string roamingStatus()
{
    int roaming = 1;
    if (Vt_EventAndStatusFacade::instance()->getRoamingStatus(roaming) != 0 || roaming == 0)
        return text("Roaming.NonRoamingLabel");
    bool friendly = true;
    if (NR_EngineUtils::friendlyNetworkStatus(friendly) != 0)
        return "Can not get Roaming status";
    return text(friendly ? "Roaming.NonRoamingLabel" : "Roaming.RoamingLabel");
}

std::string activity()
{
    if (state().updateInProgress)
        return text("Details.DownloadingLabel");
    if (NR_EngineUtils::isDownloadOptionNever())
        return text("Details.NeverLabel");
    return text(NR_EngineUtils::isNetworkAccessAllowed() ? "Details.IdleLabel" : "Details.InactiveLabel");
}

std::string memory()
{
    const State& known = state();
    std::string lines = memoryLine("Details.ContentMemoryLabel", known.usedMemoryText);
    lines += memoryLine("Details.FreeMemoryLabel", known.freeMemoryText);
    lines += memoryLine("Details.TotalMemoryLabel", known.totalMemoryText);
    return lines;
}

} // namespace StatusValues
