#include "Commands.h"

#include "Handover.h"
#include "HostBus.h"
#include "NR_URLLauncher.h"
#include "Tool.h"

#include <memory>

namespace {

std::string joined(const std::vector<std::string>& words)
{
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : " ") + word;
    return text;
}

// A link that the launcher drops before it asks for anything, as it does without a scheme, has no reason.
std::string refusal()
{
    return Handover::lastReason().empty() ? "nothing was started" : "refused: " + Handover::lastReason();
}

int open(const Tool& tool, const std::string& link)
{
    const bool answer = NR_URLLauncher::launch(vtTypes::ID(link));
    // Nobody would hear of the request if the program ended before the bus has it.
    const bool announced = HostBus::flush();
    const std::string started = joined(Handover::lastStarted());
    Output::Table(tool.json())
        .add({{"started", Output::toJson(started), started.empty() ? "nothing" : started}, {"answer", answer}});
    if (!Handover::isOn())
        return announced ? Done : tool.fail(NoBus, link, "there is no session bus");
    return started.empty() ? tool.fail(Refused, link, refusal()) : Done;
}

} // namespace

void addOpenCommand(Tool& tool)
{
    const auto link = std::make_shared<std::string>();
    CLI::App& command =
        tool.add("open", "Open a link as the menu does: what was started, the launcher's answer");
    command.add_option("LINK", *link, "A link such as tel:+12025550123")->required();
    tool.onRun(command, [&tool, link] { return open(tool, *link); });
}
