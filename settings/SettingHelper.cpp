#include "SettingHelper.h"

#include "Log.h"
#include "Text.h"
#include "UTF_8Util.h"
#include "VistaneSettingMgr.h"
#include "vtString.h"

#include <sstream>
#include <string_view>

namespace {

const Log logger("SettingHelper");

bool isRefused(int group)
{
    return group >= SETTING_GROUP_LIMIT;
}

VistaneSettingMgr& store()
{
    return *VistaneSettingMgr::getSettingMgrInstance();
}

std::string nameOf(int group)
{
    return std::string(settingGroupName(group));
}

// Reads with the store operation `get`. Failures are logged as `at`, the line of the accessor that reads.
template <class Value>
Value read(Log::At at, const char* type, int (VistaneSettingMgr::*get)(int, const char*, Value&), int group,
           const char* key)
{
    if (isRefused(group)) {
        logger(at, "get %s setting failed for %s: group %d not found", type, key, group);
        return {};
    }
    Value value{};
    const int status = (store().*get)(group, key, value);
    if (status != 0) {
        logger(at, "get %s setting failed for %s.%s: %d", type, nameOf(group).c_str(), key, status);
        return {};
    }
    return value;
}

// Whether `text` begins with `begin`, in any case.
bool beginsWith(std::string_view text, std::string_view begin)
{
    return Text::equalsIgnoreCase(text.substr(0, begin.size()), begin);
}

// The text after the first "." of `text`; all of it when it has none.
std::string afterDot(const std::string& text)
{
    const size_t dot = text.find('.');
    return dot == std::string::npos ? text : text.substr(dot + 1);
}

} // namespace

int getIntSetting(int group, const char* key)
{
    return read(7, "int", &VistaneSettingMgr::getInt, group, key);
}

void setIntSetting(int group, const char* key, int value)
{
    if (isRefused(group)) {
        logger(7, "set int %d failed: group %d not found", value, group);
        return;
    }
    const int status = store().setInt(group, key, value);
    if (status != 0)
        logger(7, "set %d setting failed for %s.%s: %d", value, nameOf(group).c_str(), key, status);
}

bool getBoolSetting(int group, const char* key)
{
    return read(7, "bool", &VistaneSettingMgr::getBoolean, group, key);
}

void setBoolSetting(int group, const char* key, bool value)
{
    if (isRefused(group)) {
        logger(7, "set bool setting failed for %s: group %d not found", key, group);
        return;
    }
    const int status = store().setBoolean(group, key, value);
    if (status != 0)
        logger(7, "set bool %d setting failed for %s.%s: %d", value, nameOf(group).c_str(), key, status);
}

std::string getStringSetting(int group, const char* key)
{
    return vtStringToUtf8(read(7, "string", &VistaneSettingMgr::getString, group, key));
}

void setStringSetting(int group, const char* key, const std::string& value)
{
    if (isRefused(group)) {
        logger(7, "set string setting failed for %s: group %d not found", key, group);
        return;
    }
    std::istringstream stream(value);
    bool error = false;
    vtTypes::String line = UTF_8Util::LineReader(stream).readLine(error);
    if (error) {
        logger(7, "set string failed for %s.%s: invalid string", nameOf(group).c_str(), key);
        return;
    }
    const int status = store().setString(group, key, line);
    if (status != 0)
        logger(7, "set string %s failed for %s.%s: %d", Text::withoutControls(value).c_str(),
               nameOf(group).c_str(), key, status);
}

int settingGroupOf(const std::string& name)
{
    for (int group = 0;; ++group) {
        std::string_view begin = settingGroupName(group);
        if (begin.empty())
            return NO_SETTING_GROUP;
        if (group == GROUP_CONNECTION_PROFILES)
            begin.remove_suffix(1); // the singular names the group too
        if (beginsWith(name, begin))
            return group;
    }
}

void splitSettingKey(const std::string& name, int& group, std::string& key)
{
    group = settingGroupOf(name);
    if (group != NO_SETTING_GROUP)
        key = afterDot(afterDot(name));
}
