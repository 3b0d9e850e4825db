#pragma once

#include <string_view>

// Names of the setting groups on the wire and in packs: "VtCore.Menu" is 5. An unknown name gives -1, a
// number without a name the empty string.
int settingGroupNumber(std::string_view name);
std::string_view settingGroupName(int group);
