#pragma once

#include <string_view>

// The setting groups by number.
enum SettingGroup {
    GROUP_CONNECTION_PROFILES = 0,
    GROUP_DCD = 1,
    GROUP_ENGINEERING_MENU = 2,
    GROUP_HTTP_TRANSPORT = 3,
    GROUP_INIT_SETTING = 4,
    GROUP_MENU = 5,
    GROUP_SERVICE = 6,
    GROUP_STORAGE = 7,
    GROUP_SYSTEM = 8,
    GROUP_UI = 9,
    GROUP_NEWS_READER_UI = 10,
};

// Names of the setting groups on the wire and in packs: "VtCore.Menu" is 5. An unknown name gives -1, a
// number without a name the empty string.
int settingGroupNumber(std::string_view name);
std::string_view settingGroupName(int group);
