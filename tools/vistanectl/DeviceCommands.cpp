#include "Commands.h"

#include "CoreStore.h"
#include "Tool.h"

#include <memory>

namespace {

int list(const Tool& tool, CoreStore& store)
{
    Output::Table table(tool.json());
    for (std::string_view name : Scene::factNames()) {
        std::string value;
        const int status = store.fact(name, value);
        if (status != STORE_OK && status != STORE_NOT_FOUND)
            return tool.finish(status, std::string(name));
        table.add({{"name", Output::toJson(std::string(name))}, {"value", Output::toJson(value)}});
    }
    return Done;
}

} // namespace

void addDeviceCommands(Tool& tool)
{
    struct Arguments
    {
        std::string name, value;
    };
    const auto arguments = std::make_shared<Arguments>();
    CLI::App& group = tool.add("device", "Facts of the device");

    tool.onRun(tool.add("list", "List the facts; an empty value is one the device can't tell", &group),
               [&tool](CoreStore& store) { return list(tool, store); });

    CLI::App& set = tool.add("set", "Set a fact", &group);
    set.add_option("NAME", arguments->name, "One of the names that list shows")->required();
    set.add_option("VALUE", arguments->value, "Empty for a device that can't tell")->required();
    tool.onRun(set, [&tool, arguments](CoreStore& store) {
        return tool.finish(store.setFact(arguments->name, arguments->value), arguments->name);
    });
}
