#include "Commands.h"

#include "HostBus.h"
#include "MenuChannel.h"
#include "NR_Constants.h"
#include "QCopChannel.h"
#include "Tool.h"
#include "Vt_Event.h"
#include "Vt_EventAndStatusFacade.h"

#include <algorithm>
#include <memory>

namespace {

struct Arguments
{
    std::string event;
    int value = 0;
    std::vector<std::string> parameters;
    std::string text;
    int mode = 0;
};

std::string namesForHelp()
{
    std::string help = "One of";
    for (const std::string& name : NR_Constants::eventNames)
        help += ' ' + name;
    return help;
}

std::string checkParameter(const std::string& parameter)
{
    return parameter.find('=') == std::string::npos ? parameter + " is not of the form K=V" : std::string();
}

std::shared_ptr<const Vt_Event::Parameters> parametersOf(const std::vector<std::string>& given)
{
    if (given.empty())
        return nullptr;
    const auto parameters = std::make_shared<Vt_Event::Parameters>();
    for (const std::string& one : given)
        (*parameters)[one.substr(0, one.find('='))] = one.substr(one.find('=') + 1);
    return parameters;
}

// The exit status of a command that sent something; waits until the bus has it.
int afterSending(const Tool& tool, bool sent, const std::string& what)
{
    return sent && HostBus::flush() ? Done : tool.fail(NoBus, what, "there is no session bus");
}

int send(const Tool& tool, const Arguments& arguments)
{
    const auto& names = NR_Constants::eventNames;
    if (std::find(names.begin(), names.end(), arguments.event) == names.end())
        return tool.fail(Refused, arguments.event, "is no event of the service");
    const Vt_Event event(arguments.event, arguments.value, parametersOf(arguments.parameters), arguments.text);
    const bool sent = Vt_EventAndStatusFacade::instance()->sendEvent(event, arguments.mode) == 0;
    return afterSending(tool, sent, arguments.event);
}

int close(const Tool& tool)
{
    return afterSending(tool, QCopChannel::send(menuChannel, "close"), "close");
}

int idle(const Tool& tool)
{
    constexpr int reason = 0;
    return afterSending(tool, HostBus::send(BusSignals::returnToIdle, {reason}), "idle");
}

} // namespace

void addEventCommands(Tool& tool)
{
    const auto arguments = std::make_shared<Arguments>();
    CLI::App& sending = tool.add("send", "Send an event of the service");
    sending.add_option("EVENT", arguments->event, namesForHelp())->required();
    sending.add_option("VALUE", arguments->value, "Its integer, 0 without it");
    sending.add_option("--param", arguments->parameters, "A named parameter K=V; can be given again")
        ->allow_extra_args(false)
        ->check(checkParameter);
    sending.add_option("--text", arguments->text, "Its text");
    sending.add_option("--mode", arguments->mode, "The mode it is sent with, 0 without it");
    tool.onRun(sending, [&tool, arguments] { return send(tool, *arguments); });

    tool.onRun(tool.add("close", "Close the setup menu"), [&tool] { return close(tool); });
    tool.onRun(tool.add("idle", "Make applications return to the idle screen"), [&tool] { return idle(tool); });
}
