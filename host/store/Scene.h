#pragma once

#include "SettingValue.h"

#include <QByteArray>

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// A state of one phone, for trying: who the subscriber is and where, his channels, and what the service last did.
struct Scene
{
    struct Channel
    {
        std::string id;
        std::optional<std::string> title; // a channel without one is named, but is not in the content cache
    };

    std::map<std::string, std::string> device; // facts by name, as factText() has them
    std::optional<std::vector<Channel>> channels;
    std::map<std::string, SettingValue> figures; // by key, of the group that the service writes its results to

    // The facts of a device there are: imsi, msisdn, home_network and so on.
    static std::span<const std::string_view> factNames();
    static bool isFact(std::string_view name);
    // The text that a value of a fact is kept as. "roaming" is an integer, "friendly" and
    // "user_select_profile" are true or false, each also as a text; the others are texts, and the empty text
    // means that the device can't tell. False, leaving `text` alone, for any other value or name.
    static bool factText(std::string_view name, const SettingValue& value, std::string& text);

    // Reads a scene from JSON. On failure `scene` is left alone and `error` names what is wrong, as a pack's does.
    static bool parse(const QByteArray& json, Scene& scene, std::string& error);
};
