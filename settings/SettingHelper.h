#pragma once

#include "SettingGroups.h"

#include <string>

// The only door to the settings store. A setting is addressed by a group number and a key within the group, and
// is read and written where it is used: nothing is cached.
//
// A failed read gives 0, false or the empty string, a failed write leaves the setting as it was; both are
// logged and never reach the caller otherwise. Strings are UTF-8. GUI thread only.

// Besides the numbers of SettingGroup. Those below the limit that no group has go to the store as they are.
enum {
    SETTING_GROUP_LIMIT = 12, // numbers from here on are refused
    NO_SETTING_GROUP = 13,    // what a lookup by name answers when no group matches
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
