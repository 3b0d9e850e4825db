#include "SettingsNodes.h"

#include "ApiRegistry.h"
#include "MenuSettings.h"

namespace {

// One fact of the details page: a heading, which is a setting of the menu group, and the text of a named API. The
// names are kept, not copied.
class DetailsRow : public Entry
{
public:
    DetailsRow(const char* apiName, const char* labelKey) : mApiName(apiName), mLabelKey(labelKey) {}

    bool isHidden() const override { return false; }
    bool isEnabled() const override { return true; }
    std::string label() const override { return MenuSettings::text(mLabelKey); }
    bool hasValue() const override { return true; }
    std::string valueText() const override { return ApiRegistry::instance()->text(mApiName); }

private:
    const char* const mApiName;
    const char* const mLabelKey;
};

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

bool SettingsNode::isHidden() const
{
    return !MenuSettings::isVisible(mName);
}

std::string SettingsNode::title() const
{
    return MenuSettings::title(mName);
}

std::string SettingsNode::label() const
{
    return MenuSettings::label(mName);
}

bool SetupHeadlinesNode::isEnabled() const
{
    return MenuSettings::isEnabled(mName) && !MenuSettings::isServiceOff();
}

std::string SetupHeadlinesNode::warningLabel() const
{
    return MenuSettings::text("TurnoffWarning.label");
}

std::string SetupHeadlinesNode::warningText() const
{
    return MenuSettings::text("TurnoffWarning.text");
}

bool SetupHeadlinesNode::needsWarning() const
{
    return mWarnWhenOff && MenuSettings::isServiceOff();
}

void SetupHeadlinesNode::acceptWarning()
{
    MenuSettings::setEnabledMode(MenuSettings::modeOn);
}

void SetupHeadlinesNode::watchedKeys(std::set<std::string>& keys) const
{
    keys.insert(MenuSettings::watchedEnabledMode);
}

bool ConfigureHeadlinesNode::isHidden() const
{
    return SettingsNode::isHidden() || MenuSettings::isServiceOff();
}

bool ConfigureHeadlinesNode::isEnabled() const
{
    return MenuSettings::isEnabled(mName);
}

void ConfigureHeadlinesNode::watchedKeys(std::set<std::string>& keys) const
{
    keys.insert(MenuSettings::watchedEnabledMode);
}

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
