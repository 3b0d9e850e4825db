#include "Commands.h"

#include "CoreStore.h"
#include "ListText.h"
#include "Tool.h"

#include <memory>

namespace {

int list(const Tool& tool, CoreStore& store)
{
    std::vector<OperatorPack::Profile> profiles;
    std::string current;
    int status = store.profiles(profiles);
    if (status == STORE_OK)
        status = store.currentProfile(current);
    if (status != STORE_OK)
        return tool.finish(status, "profile list");
    Output::Table table(tool.json());
    for (const auto& [id, name, selectable] : profiles)
        table.add({{"id", Output::toJson(id)},
                   {"name", Output::toJson(name)},
                   {"selectable", selectable, selectable ? "selectable" : "locked"},
                   {"current", id == current, id == current ? "current" : ""}});
    return Done;
}

int use(const Tool& tool, CoreStore& store, const std::string& id)
{
    OperatorPack::Profile profile;
    if (const int status = store.profile(id, profile); status != STORE_OK)
        return tool.finish(status, id);
    if (!profile.selectable)
        return tool.fail(Refused, id, "is locked");
    return tool.finish(store.setCurrentProfile(id), id);
}

// For Option::check().
std::string isProfileName(const std::string& name)
{
    return ListText::beginsWithMark(name) ? "begins with the mark of a locked choice" : isLine(name);
}

} // namespace

int finishProfiles(const Tool& tool, CoreStore& store, int storeStatus, const std::string& about)
{
    std::string current;
    OperatorPack::Profile profile;
    if (storeStatus == STORE_OK && store.currentProfile(current) == STORE_OK && !current.empty() &&
        store.profile(current, profile) == STORE_OK && !profile.selectable)
        tool.warn(current, "is in force but locked; the menu shows another profile as chosen");
    return tool.finish(storeStatus, about);
}

void addProfileCommands(Tool& tool)
{
    const auto profile = std::make_shared<OperatorPack::Profile>();
    CLI::App& group = tool.add("profile", "Operator profiles");

    tool.onRun(tool.add("list", "List the profiles: identifier, name, selectable or locked, current", &group),
               [&tool](CoreStore& store) { return list(tool, store); });

    CLI::App& add = tool.add("add", "Add a profile, or change one", &group);
    add.add_option("ID", profile->id, "Its identifier")->required()->check(isLine);
    add.add_option("NAME", profile->name, "What people read")->required()->check(isProfileName);
    add.add_flag("--locked{false}", profile->selectable, "The user may not choose it");
    tool.onRun(add, [&tool, profile](CoreStore& store) {
        return finishProfiles(tool, store, store.addProfile(*profile), profile->id);
    });

    CLI::App& choosing = tool.add("use", "Put a profile in force", &group);
    choosing.add_option("ID", profile->id, "Its identifier")->required();
    tool.onRun(choosing, [&tool, profile](CoreStore& store) { return use(tool, store, profile->id); });

    CLI::App& remove = tool.add("remove", "Remove a profile", &group);
    remove.add_option("ID", profile->id, "Its identifier")->required();
    tool.onRun(remove, [&tool, profile](CoreStore& store) {
        return tool.finish(store.removeProfile(profile->id), profile->id);
    });
}
