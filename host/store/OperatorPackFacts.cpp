#include "OperatorPack.h"

#include "vtString.h"

#include <algorithm>
#include <array>

namespace {

using ToText = bool (*)(const SettingValue& value, std::string& text);

bool plainText(const SettingValue& value, std::string& text)
{
    const auto* given = std::get_if<std::string>(&value);
    vtTypes::String decoded;
    if (!given || !vtStringFromUtf8(*given, decoded))
        return false;
    text = *given;
    return true;
}

bool integer(const SettingValue& value, std::string& text)
{
    if (const auto* number = std::get_if<int>(&value)) {
        text = std::to_string(*number);
        return true;
    }
    const auto* given = std::get_if<std::string>(&value);
    if (!given || (!given->empty() && !vtIntegerFromText(*given)))
        return false;
    text = *given;
    return true;
}

// On the command line 1 and 0 do as well.
bool flag(const SettingValue& value, std::string& text)
{
    if (const auto* on = std::get_if<bool>(&value)) {
        text = *on ? "true" : "false";
        return true;
    }
    const auto* given = std::get_if<std::string>(&value);
    if (!given)
        return false;
    text = *given == "1" ? "true" : *given == "0" ? "false" : *given;
    return text.empty() || text == "true" || text == "false";
}

struct Fact
{
    std::string_view name;
    ToText toText;
};

constexpr std::array facts = {
    Fact{"imsi", plainText},           Fact{"msisdn", plainText},
    Fact{"home_network", plainText},   Fact{"current_network", plainText},
    Fact{"roaming", integer},          Fact{"friendly", flag},
    Fact{"user_select_profile", flag}, Fact{"model", plainText},
    Fact{"sw_version", plainText},     Fact{"dpp_version", plainText},
};

constexpr auto names = [] {
    std::array<std::string_view, facts.size()> result;
    std::transform(facts.begin(), facts.end(), result.begin(), [](const Fact& fact) { return fact.name; });
    return result;
}();

} // namespace

std::span<const std::string_view> OperatorPack::factNames()
{
    return names;
}

bool OperatorPack::isFact(std::string_view name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool OperatorPack::factText(std::string_view name, const SettingValue& value, std::string& text)
{
    const auto fact =
        std::find_if(facts.begin(), facts.end(), [&](const Fact& one) { return one.name == name; });
    std::string result;
    if (fact == facts.end() || !fact->toText(value, result))
        return false;
    text = std::move(result);
    return true;
}
