#include "Commands.h"

#include "SettingKey.h"
#include "Tool.h"

#include <QJsonObject>

#include <iterator>
#include <memory>

namespace {

constexpr const char* layerNames[] = {"pack", "user"};

// Arguments of a command that is about one setting; they live as long as the command.
struct Arguments
{
    std::string name;
    std::string value;
    std::string type;
    SettingKey key;
};
using SharedArguments = std::shared_ptr<Arguments>;
using RunOnSetting = int (*)(const Tool& tool, CoreStore& store, const Arguments& arguments);

int unknownName(const Tool& tool, const std::string& name)
{
    return tool.fail(Refused, name, "is no setting: it must be a group, a dot and a key");
}

int get(const Tool& tool, CoreStore& store, const Arguments& arguments)
{
    SettingValue value;
    if (const int status = store.read(arguments.key.group, arguments.key.key, value); status != STORE_OK)
        return tool.finish(status, arguments.name);
    if (tool.json())
        Output::line(QJsonObject{{"key", Output::toJson(arguments.name)},
                                 {"type", settingTypeNames[value.index()]},
                                 {"value", toJson(value)}});
    else
        Output::line(toJson(value).toVariant().toString().toStdString());
    return Done;
}

// The type that the command line gives.
std::optional<size_t> givenType(const Arguments& arguments)
{
    const auto* found = std::find(std::begin(settingTypeNames), std::end(settingTypeNames), arguments.type);
    if (found == std::end(settingTypeNames))
        return std::nullopt;
    return found - std::begin(settingTypeNames);
}

int set(const Tool& tool, CoreStore& store, const Arguments& arguments)
{
    SettingValue current;
    const int status = store.read(arguments.key.group, arguments.key.key, current);
    if (status != STORE_OK && status != STORE_NOT_FOUND)
        return tool.finish(status, arguments.name);
    const std::optional<size_t> type = status == STORE_OK ? current.index() : givenType(arguments);
    if (!type)
        return tool.fail(Refused, arguments.name, "not found; --type int, bool or string makes it");
    if (!arguments.type.empty() && arguments.type != settingTypeNames[*type])
        return tool.fail(Refused, arguments.name, std::string("is of type ") + settingTypeNames[*type]);
    if (arguments.value.find('\n') != std::string::npos)
        return tool.fail(Refused, arguments.name, "a setting is one line");
    const std::optional<SettingValue> value = parseSettingValue(*type, arguments.value);
    if (!value)
        return tool.fail(Refused, arguments.name,
                         '"' + arguments.value + "\" is no " + settingTypeNames[*type]);
    return tool.finish(store.write(arguments.key.group, arguments.key.key, *value), arguments.name);
}

int reset(const Tool& tool, CoreStore& store, const Arguments& arguments)
{
    const int status = store.reset(arguments.key.group, arguments.key.key);
    if (status == STORE_NOT_FOUND)
        return tool.fail(Refused, arguments.name, "has no value of the user's");
    return tool.finish(status, arguments.name);
}

int list(const Tool& tool, CoreStore& store, const std::string& prefix)
{
    std::vector<CoreStore::Listed> settings;
    if (const int status = store.list(settings); status != STORE_OK)
        return tool.finish(status, "list");
    Output::Table table(tool.json());
    for (const auto& [setting, layer] : settings) {
        const std::string name = SettingKey::nameOf(setting);
        if (name.starts_with(prefix))
            table.add({{"key", Output::toJson(name)},
                       {"type", settingTypeNames[setting.value.index()]},
                       {"layer", layerNames[static_cast<int>(layer)]},
                       {"value", toJson(setting.value)}});
    }
    return Done;
}

CLI::App& addOne(Tool& tool, const char* name, const char* help, const SharedArguments& arguments,
                 RunOnSetting run)
{
    CLI::App& command = tool.add(name, help);
    command.add_option("KEY", arguments->name, "Such as VtCore.Menu.Details.title")->required();
    tool.onRun(command, [&tool, arguments, run](CoreStore& store) {
        const std::optional<SettingKey> key = SettingKey::parse(arguments->name);
        if (!key)
            return unknownName(tool, arguments->name);
        arguments->key = *key;
        return run(tool, store, *arguments);
    });
    return command;
}

} // namespace

void addSettingCommands(Tool& tool)
{
    const auto arguments = std::make_shared<Arguments>();
    addOne(tool, "get", "Print the value of a setting", arguments, get);

    CLI::App& setting = addOne(tool, "set", "Set the user's value of a setting", arguments, set);
    setting.add_option("VALUE", arguments->value, "The new value; true or false for a bool")->required();
    setting.add_option("--type", arguments->type, "Type of a setting that is not there yet")
        ->check(
            CLI::IsMember(std::vector<std::string>(std::begin(settingTypeNames), std::end(settingTypeNames))));

    addOne(tool, "reset", "Take the user's value away, so that the pack's is in force", arguments, reset);

    CLI::App& listing = tool.add("list", "List settings: key, type, layer, value");
    listing.add_option("PREFIX", arguments->name, "Only settings that begin so");
    tool.onRun(listing, [&tool, arguments](CoreStore& store) { return list(tool, store, arguments->name); });
}
