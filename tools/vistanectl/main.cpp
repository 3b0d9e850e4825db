#include "Commands.h"
#include "Tool.h"

#include "aplog.h"
#include "vtString.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

constexpr void (*commandGroups[])(Tool&) = {
    addSettingCommands, addPackCommands, addDeviceCommands, addChannelCommands, addProfileCommands,
    addMenuCommand,     addOpenCommand,  addEventCommands,  addWatchCommand,
};

// The platform log must not mix with results.
void logToStandardError()
{
    _aplog_init_orig("vistanectl", 0);
    if (!libaplog_to_module_ptr)
        libaplog_to_module_ptr = stderr;
}

bool isNegativeNumber(const std::string& argument)
{
    return argument.size() > 1 && argument[0] == '-' &&
           std::all_of(argument.begin() + 1, argument.end(),
                       [](char digit) { return digit >= '0' && digit <= '9'; });
}

// The arguments with negative numbers moved behind a "--", or they would be taken for options. A number is a
// command's last argument wherever it has one; one that belongs to the option before it stays there.
std::vector<std::string> argumentsOf(int argc, char** argv)
{
    std::vector<std::string> arguments(argv + 1, argv + argc);
    if (std::find(arguments.begin(), arguments.end(), "--") != arguments.end())
        return arguments;
    std::vector<std::string> front;
    std::vector<std::string> numbers;
    for (const std::string& argument : arguments) {
        const bool isOptionsValue = !front.empty() && front.back().starts_with("--");
        (isNegativeNumber(argument) && !isOptionsValue ? numbers : front).push_back(argument);
    }
    if (!numbers.empty())
        front.emplace_back("--");
    front.insert(front.end(), numbers.begin(), numbers.end());
    return front;
}

bool isUtf8(const std::string& text)
{
    vtTypes::String decoded;
    return vtStringFromUtf8(text, decoded);
}

} // namespace

int main(int argc, char** argv)
{
    std::vector<std::string> arguments = argumentsOf(argc, argv);
    const QCoreApplication application(argc, argv);
    logToStandardError();
    Tool tool;
    for (const auto addCommands : commandGroups)
        addCommands(tool);
    if (!std::all_of(arguments.begin(), arguments.end(), isUtf8))
        return tool.fail(Usage, "the command line", "is not UTF-8");
    std::reverse(arguments.begin(), arguments.end());
    return tool.run(std::move(arguments));
}
