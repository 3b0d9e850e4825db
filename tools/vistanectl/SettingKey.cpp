#include "SettingKey.h"

#include "Output.h"
#include "SettingGroups.h"
#include "Text.h"

std::optional<SettingKey> SettingKey::parse(const std::string& name)
{
    const size_t inside = name.find('.');
    if (inside == std::string::npos)
        return std::nullopt;
    // A group without a name goes by its number, which is also how it is listed.
    const std::optional<int> number = Text::integer(std::string_view(name).substr(0, inside));
    if (number && inside + 1 < name.size() && settingGroupName(*number).empty())
        return SettingKey{*number, name.substr(inside + 1)};
    // Every group's name has exactly one dot.
    const size_t end = name.find('.', inside + 1);
    if (end == std::string::npos || end + 1 == name.size())
        return std::nullopt;
    const int group = settingGroupNumber(std::string_view(name).substr(0, end));
    if (group < 0)
        return std::nullopt;
    return SettingKey{group, name.substr(end + 1)};
}

std::string SettingKey::nameOf(const OperatorPack::Setting& setting)
{
    const std::string_view group = settingGroupName(setting.group);
    return (group.empty() ? std::to_string(setting.group) : std::string(group)) + '.' + setting.key;
}

std::optional<SettingValue> parseSettingValue(size_t type, const std::string& text)
{
    switch (type) {
    case 0:
        return Text::integer(text);
    case 1:
        if (text != "true" && text != "false")
            return std::nullopt;
        return text == "true";
    default:
        return text;
    }
}

QJsonValue toJson(const SettingValue& value)
{
    if (const auto* text = std::get_if<std::string>(&value))
        return Output::toJson(*text);
    if (const auto* flag = std::get_if<bool>(&value))
        return *flag;
    return std::get<int>(value);
}
