#pragma once

#include <string>

// The only door to the settings store. A setting is addressed by a group number and a key within the group, and
// is read and written where it is used: nothing is cached.
//
// A failed read gives 0, false or the empty string, a failed write leaves the setting as it was; both are logged
// and never reach the caller otherwise. Strings are UTF-8. GUI thread only.

// The groups by number. Numbers from 12 on are refused; others without a name here go to the store as they are.
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
    SETTING_GROUP_LIMIT = 12,
    NO_SETTING_GROUP = 13, // what a lookup by name answers when no group matches
};

int getIntSetting(int group, const char* key);
void setIntSetting(int group, const char* key, int value);

bool getBoolSetting(int group, const char* key);
void setBoolSetting(int group, const char* key, bool value);

// The store's characters above U+FFFF come back cut to their low 16 bits.
std::string getStringSetting(int group, const char* key);
// Settings are single lines: what is stored is the first line of `value`. Text that is not UTF-8 is refused.
void setStringSetting(int group, const char* key, const std::string& value);

// The group whose name `name` begins with, in any case; NO_SETTING_GROUP when there is none.
int settingGroupOf(const std::string& name);

// Splits a name such as "VtCore.Menu.Details.label" into its group, 5, and the key "Details.label". With an
// unknown group, `group` becomes NO_SETTING_GROUP and `key` stays as it was.
void splitSettingKey(const std::string& name, int& group, std::string& key);
