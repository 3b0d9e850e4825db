#pragma once

#include "CoreStore.h"

#include <QJsonValue>

#include <optional>
#include <string>

// A setting's full name, such as VtCore.Menu.Details.title.
struct SettingKey
{
    int group = 0;
    std::string key;

    // Nothing when the name doesn't begin with a group's name, a dot, and something after it.
    static std::optional<SettingKey> parse(const std::string& name);
    static std::string nameOf(const OperatorPack::Setting& setting);
};

// Names of the types, by the index of the alternative in SettingValue.
constexpr const char* settingTypeNames[] = {"int", "bool", "string"};

// `text` as a value of the type with that index; nothing when it is none.
std::optional<SettingValue> parseSettingValue(size_t type, const std::string& text);

QJsonValue toJson(const SettingValue& value);
