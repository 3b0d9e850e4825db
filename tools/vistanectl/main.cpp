#include "Commands.h"
#include "Tool.h"

#include "CoreStore.h"
#include "StoreChanges.h"
#include "Text.h"
#include "aplog.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

constexpr void (*commandGroups[])(Tool&) = {
    addSettingCommands, addPackCommands,  addDeviceCommands, addChannelCommands,
    addProfileCommands, addMenuCommand,   addLintCommand,    addGuideCommand,
    addOpenCommand,     addEventCommands, addServiceCommand, addWatchCommand,
};

// Milliseconds that a command waits for another program's write; nobody's screen stands still meanwhile.
constexpr int toolPatience = 5000;

// The platform log must not mix with results.
void logToStandardError()
{
    _aplog_init_orig("vistanectl", 0);
    if (!libaplog_to_module_ptr)
        libaplog_to_module_ptr = stderr;
}

} // namespace

int main(int argc, char** argv)
{
    std::vector<std::string> arguments(argv + 1, argv + argc);
    const QCoreApplication application(argc, argv);
    logToStandardError();
    CoreStore::setPatience(toolPatience);
    StoreChanges::announce();
    Tool tool;
    for (const auto addCommands : commandGroups)
        addCommands(tool);
    if (!std::all_of(arguments.begin(), arguments.end(), Text::isUtf8))
        return tool.fail(Usage, "the command line", "is not UTF-8");
    std::reverse(arguments.begin(), arguments.end());
    const int exit = tool.run(std::move(arguments));
    StoreChanges::flush();
    return exit;
}
