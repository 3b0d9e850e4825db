#pragma once

#include "SettingValue.h"

#include <QByteArray>

#include <optional>
#include <string>
#include <vector>

// What an operator ships for many phones: the settings of the pack layer, and his profiles. It holds nothing of one
// phone: whose it is, and which channels he has, is a Scene.
struct OperatorPack
{
    struct Setting
    {
        int group;
        std::string key;
        SettingValue value;
    };
    struct Profile
    {
        std::string id;
        std::string name;
        bool selectable = true;
    };

    std::vector<Setting> settings;
    std::optional<std::vector<Profile>> profiles;

    // Reads a pack from JSON. On failure `pack` is left alone and `error` names what is wrong: the line and
    // column of a syntax error, or the group and key (or the section and the name) of a wrong value.
    static bool parse(const QByteArray& json, OperatorPack& pack, std::string& error);
    QByteArray toJson() const;

    // The pack the program carries with it.
    static const OperatorPack& builtIn();
};
