#include "Commands.h"

#include "CoreStore.h"
#include "Tool.h"

#include <memory>

namespace {

int list(const Tool& tool, CoreStore& store)
{
    std::vector<Scene::Channel> channels;
    if (const int status = store.channels(channels); status != STORE_OK)
        return tool.finish(status, "channel list");
    Output::Table table(tool.json());
    for (const auto& [id, title] : channels)
        table.add({{"id", Output::toJson(id)}, {"title", title ? Output::toJson(*title) : QJsonValue()}});
    return Done;
}

} // namespace

void addChannelCommands(Tool& tool)
{
    const auto channel = std::make_shared<Scene::Channel>();
    channel->title.emplace();
    CLI::App& group = tool.add("channel", "The user's headline channels");

    tool.onRun(tool.add("list", "List the channels: identifier, title", &group),
               [&tool](CoreStore& store) { return list(tool, store); });

    CLI::App& add = tool.add("add", "Add a channel, or give one another title", &group);
    add.add_option("ID", channel->id, "Its identifier")->required()->check(isLine);
    add.add_option("TITLE", *channel->title, "What lists show")->required()->check(isLine);
    tool.onRun(add, [&tool, channel](CoreStore& store) {
        return tool.finish(store.addChannel(*channel), channel->id);
    });

    CLI::App& remove = tool.add("remove", "Remove a channel", &group);
    remove.add_option("ID", channel->id, "Its identifier")->required();
    tool.onRun(remove, [&tool, channel](CoreStore& store) {
        return tool.finish(store.removeChannel(channel->id), channel->id);
    });
}
