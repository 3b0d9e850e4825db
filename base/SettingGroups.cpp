#include "SettingGroups.h"

#include <algorithm>
#include <array>

namespace {

// In the order of their numbers.
constexpr std::array<std::string_view, 11> names = {
    "VtCore.ConnectionProfiles",
    "VtCore.DCD",
    "VtCore.EngineeringMenu",
    "VtCore.HttpTransport",
    "VtCore.InitSetting",
    "VtCore.Menu",
    "VtCore.Service",
    "VtCore.Storage",
    "VtCore.System",
    "VtCore.UI",
    "VtNewsReader.UI",
};

} // namespace

int settingGroupNumber(std::string_view name)
{
    const auto found = std::find(names.begin(), names.end(), name);
    return found == names.end() ? -1 : static_cast<int>(found - names.begin());
}

std::string_view settingGroupName(int group)
{
    return group >= 0 && group < static_cast<int>(names.size()) ? names[group] : std::string_view();
}
