#pragma once

#include <QByteArray>

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

// A setting's value; the alternative is its type.
using SettingValue = std::variant<int, bool, std::string>;

// What an operator ships: the settings of the pack layer and the facts that go with them.
struct OperatorPack
{
    struct Setting
    {
        int group;
        std::string key;
        SettingValue value;
    };
    struct Channel
    {
        std::string id;
        std::optional<std::string> title;
    };
    struct Profile
    {
        std::string id;
        std::string name;
        bool selectable = true;
    };

    std::vector<Setting> settings;
    std::map<std::string, std::string> device;
    std::optional<std::vector<Channel>> channels;
    std::optional<std::vector<Profile>> profiles;

    // The device facts there are: imsi, msisdn, home_network and so on.
    static std::span<const std::string_view> factNames();
    static bool isFact(std::string_view name);
    // The text that a value of a fact is kept as. "roaming" is an integer, "friendly" and
    // "user_select_profile" are true or false, each also as a text; the others are texts, and the empty text
    // means that the device can't tell. False, leaving `text` alone, for any other value or name.
    static bool factText(std::string_view name, const SettingValue& value, std::string& text);

    // Reads a pack from JSON. On failure `pack` is left alone and `error` names what is wrong: the line and
    // column of a syntax error, or the group and key (or the section and the name) of a wrong value.
    static bool parse(const QByteArray& json, OperatorPack& pack, std::string& error);
    QByteArray toJson() const;

    // The pack the program carries with it.
    static const OperatorPack& builtIn();
};
