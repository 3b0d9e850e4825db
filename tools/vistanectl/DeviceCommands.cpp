#include "Commands.h"

#include "CoreStore.h"
#include "DeviceFacts.h"
#include "Tool.h"

#include <memory>

namespace {

// Where a fact comes from, as people and machines read it.
constexpr const char* sourceName(DeviceFacts::Fact::Source source)
{
    using Source = DeviceFacts::Fact::Source;
    return source == Source::Hand ? "hand" : source == Source::Modem ? "modem" : "";
}

int list(const Tool& tool)
{
    Output::Table table(tool.json());
    for (std::string_view name : Scene::factNames()) {
        const DeviceFacts::Fact fact = DeviceFacts::find(name);
        if (fact.status != STORE_OK && fact.status != STORE_NOT_FOUND)
            return tool.finish(fact.status, std::string(name));
        table.add({{"name", Output::toJson(std::string(name))},
                   {"value", Output::toJson(fact.value)},
                   {"source", sourceName(fact.source)}});
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

    tool.onRun(tool.add("list", "List the facts, empty where the device can't tell, and who says so", &group),
               [&tool](CoreStore&) { return list(tool); });

    CLI::App& set = tool.add("set", "Set a fact by hand, whatever the modem says", &group);
    set.add_option("NAME", arguments->name, "One of the names that list shows")->required();
    set.add_option("VALUE", arguments->value, "Empty for a device that can't tell")->required();
    tool.onRun(set, [&tool, arguments](CoreStore& store) {
        return tool.finish(store.setFact(arguments->name, arguments->value), arguments->name);
    });

    CLI::App& unset = tool.add("unset", "Leave a fact to the modem again", &group);
    unset.add_option("NAME", arguments->name, "One that was set by hand")->required();
    tool.onRun(unset, [&tool, arguments](CoreStore& store) {
        return tool.finish(store.unsetFact(arguments->name), arguments->name);
    });
}
