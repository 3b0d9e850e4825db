#include "NR_EngineUtils.h"

#include "DeviceFacts.h"
#include "SettingGroups.h"
#include "StoreStatus.h"
#include "Text.h"
#include "VistaneSettingMgr.h"

#include <string_view>

namespace {

struct Macro
{
    std::string_view name;
    std::string_view fact;
};

constexpr Macro macros[] = {
    {"@DEVICE_MODEL@", "model"},
    {"@DP_CLIENT_SW_VERSION@", "sw_version"},
    {"@DPP_VERSION@", "dpp_version"},
    {"@MSISDN@", "msisdn"},
};

// The macro that `text` begins with, or null.
const Macro* macroAt(std::string_view text)
{
    for (const Macro& macro : macros)
        if (text.starts_with(macro.name))
            return &macro;
    return nullptr;
}

std::string fillIn(const Macro& macro)
{
    return Text::percentEncoded(DeviceFacts::find(macro.fact).value);
}

// A device that can't tell where it is counts as being at home, as on the details page.
bool isAtHome()
{
    int roaming = 0;
    bool friendly = false;
    DeviceFacts::get("roaming", roaming);
    return roaming == 0 || (DeviceFacts::get("friendly", friendly) == STORE_OK && friendly);
}

} // namespace

int NR_EngineUtils::getDownloadOptionSetting(int& option)
{
    return VistaneSettingMgr::getSettingMgrInstance()->getInt(GROUP_SERVICE, "DownloadOption", option);
}

int NR_EngineUtils::friendlyNetworkStatus(bool& friendly)
{
    return DeviceFacts::get("friendly", friendly);
}

bool NR_EngineUtils::isDownloadOptionNever()
{
    int option = DOWNLOAD_ALWAYS;
    return getDownloadOptionSetting(option) == STORE_OK && option == DOWNLOAD_NEVER;
}

bool NR_EngineUtils::isNetworkAccessAllowed()
{
    int option = DOWNLOAD_NEVER;
    if (getDownloadOptionSetting(option) != STORE_OK)
        return false;
    return option == DOWNLOAD_ALWAYS || (option == DOWNLOAD_AT_HOME && isAtHome());
}

void NR_EngineUtils::replacePatternsInURL(std::string& url)
{
    std::string filled;
    for (size_t at = 0; at < url.size();) {
        if (const Macro* macro = macroAt(std::string_view(url).substr(at))) {
            filled += fillIn(*macro);
            at += macro->name.size();
        } else {
            filled += url[at++];
        }
    }
    url = std::move(filled);
}
