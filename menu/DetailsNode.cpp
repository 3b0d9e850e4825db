#include "DetailsNode.h"

#include "DetailsRow.h"
#include "MenuSettings.h"

namespace {

// The page, row by row.
constexpr struct
{
    const char* apiName;
    const char* labelKey;
} rows[] = {
    {"HOME_NETWORK_API", "Details.HomeNetworkLabel"},
    {"CURRENT_NETWORK_API", "Details.CurrentNetworkLabel"},
    {"DOWNLOAD_MODE_API", "Details.DownloadOptionLabel"},
    {"ROAMING_STATUS_API", "Details.RoamingStatusLabel"},
    {"ACTIVITY_API", "Details.CurrentActivityLabel"},
    {"LAST_CONNECTION_API", "Details.LastConnectionLabel"},
    {"SUBSCRIPTION_API", "Details.SubscriptionLabel"},
    {"MEMORY_API", "Details.MemoryLabel"},
};

} // namespace

DetailsNode::DetailsNode() : SettingsNode("Details", 1)
{
    for (const auto& row : rows)
        mChildren.push_back(new DetailsRow(row.apiName, row.labelKey));
}

DetailsNode::~DetailsNode()
{
    for (Entry* row : mChildren)
        delete row;
}

bool DetailsNode::isEnabled() const
{
    return MenuSettings::isEnabledWithoutProfile(mName);
}

void DetailsNode::watchedKeys(std::set<std::string>& keys) const
{
    keys.insert(MenuSettings::watchedProfileSelected);
}
