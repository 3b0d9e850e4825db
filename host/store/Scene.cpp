#include "Scene.h"

#include "JsonReader.h"
#include "Text.h"

#include <algorithm>
#include <array>

namespace {

using ToText = bool (*)(const SettingValue& value, std::string& text);

bool plainText(const SettingValue& value, std::string& text)
{
    const auto* given = std::get_if<std::string>(&value);
    if (!given || !Text::isUtf8(*given))
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
    if (!given || (!given->empty() && !Text::integer(*given)))
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

// What the service writes down of its last update, each with a value of its type.
const std::map<std::string, SettingValue> figures = {
    {"LastUpdateTime", 0}, {"LastUpdateResult", std::string()}, {"ItemsDownloaded", 0}, {"BytesDownloaded", 0}};

class SceneReader : public JsonReader
{
public:
    bool read(const QByteArray& json, Scene& scene)
    {
        return readDocument(
            json, "scene",
            {{"device", [&](const QJsonValue& section) { return readDevice(section, scene); }},
             {"channels", [&](const QJsonValue& section) { return readChannels(section, scene); }},
             {"figures", [&](const QJsonValue& section) { return readFigures(section, scene); }}});
    }

private:
    bool readDevice(const QJsonValue& section, Scene& scene)
    {
        return readMembers("device", section, [&](const QString& key, const QJsonValue& json) {
            const QString name = "device " + key;
            SettingValue value;
            if (!Scene::isFact(key.toStdString()))
                return fail(name, "is no fact of a device");
            return readValue(name, json, value) &&
                   (Scene::factText(key.toStdString(), value, scene.device[key.toStdString()]) ||
                    fail(name, "cannot have that value"));
        });
    }

    bool readChannels(const QJsonValue& section, Scene& scene)
    {
        scene.channels.emplace();
        return readItems("channels", {"id", "title"}, section,
                         [&](const QString& name, const QJsonObject& item) {
                             Scene::Channel& channel = scene.channels->emplace_back();
                             return readId(name, item, channel.id) &&
                                    (!item.contains("title") ||
                                     readLine(name + " title", item["title"], channel.title.emplace()));
                         });
    }

    bool readFigures(const QJsonValue& section, Scene& scene)
    {
        return readMembers("figures", section, [&](const QString& key, const QJsonValue& json) {
            const auto type = figures.find(key.toStdString());
            SettingValue value;
            if (type == figures.end())
                return fail("figures " + key, "is no figure of the service");
            if (!readValue("figures " + key, json, value))
                return false;
            if (value.index() != type->second.index())
                return fail("figures " + key, "cannot have that value");
            scene.figures["RuntimeValues." + type->first] = std::move(value);
            return true;
        });
    }
};

} // namespace

std::span<const std::string_view> Scene::factNames()
{
    return names;
}

bool Scene::isFact(std::string_view name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool Scene::factText(std::string_view name, const SettingValue& value, std::string& text)
{
    const auto fact =
        std::find_if(facts.begin(), facts.end(), [&](const Fact& one) { return one.name == name; });
    std::string result;
    if (fact == facts.end() || !fact->toText(value, result))
        return false;
    text = std::move(result);
    return true;
}

bool Scene::parse(const QByteArray& json, Scene& scene, std::string& error)
{
    Scene result;
    SceneReader reader;
    const bool good = reader.read(json, result);
    if (good)
        scene = std::move(result);
    else
        error = reader.error();
    return good;
}
