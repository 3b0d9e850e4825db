#include "Commands.h"

#include "Tool.h"
#include "Watcher.h"

#include <QCoreApplication>

#include <cstdio>

namespace {

int watch(const Tool& tool)
{
    Watcher watcher(tool.json());
    if (!watcher.start())
        return tool.fail(NoBus, "watch", "there is no session bus");
    std::fputs("watching\n", stderr);
    QCoreApplication::exec();
    return tool.fail(NoBus, "watch", "the session bus is gone");
}

} // namespace

void addWatchCommand(Tool& tool)
{
    CLI::App& watching = tool.add(
        "watch", "Print every event, channel message, platform request and change of the store as it happens");
    watching.footer("event    name, value, then mode=, text= and param.K= where there are any\n"
                    "channel  channel, message, then data= in hexadecimal where there is any\n"
                    "request  operation, arguments\n"
                    "refused  operation, reason\n"
                    "idle     reason\n"
                    "changed  names of what was written to the store; none: anything\n"
                    "unknown  path, interface, signal, signature of what should have been one of these");
    tool.onRun(watching, [&tool] { return watch(tool); });
}
