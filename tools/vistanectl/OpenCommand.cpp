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

const char* wordFor(Handover::Outcome::What what)
{
    switch (what) {
    case Handover::Outcome::Done:
        return "started";
    case Handover::Outcome::Cancelled:
        return "cancelled";
    case Handover::Outcome::Refused:
        return "refused";
    case Handover::Outcome::UnderWay:
    case Handover::Outcome::Unknown:
        return "unknown";
    case Handover::Outcome::Nothing:
        break;
    }
    return "nothing";
}

int open(const Tool& tool, const std::string& link)
{
    const bool answer = NR_URLLauncher::launch(vtTypes::ID(link));
    const Handover::Outcome& outcome = Handover::lastOutcome();
    // Nobody would hear of the request if the program ended before the bus has it.
    const bool announced = HostBus::flush();
    const std::string word = wordFor(outcome.what), started = joined(outcome.started);
    const bool isDone = outcome.what == Handover::Outcome::Done;
    Output::Table(tool.json())
        .add({{"outcome", Output::toJson(word), isDone ? started : word},
              {"started", Output::toJson(started), {}, true},
              {"answer", answer}});
    if (!Handover::isOn())
        return announced ? Done : tool.fail(NoBus, link, "there is no session bus");
    if (isDone)
        return Done;
    // A link that the launcher drops before it asks for anything, as it does without a scheme, has no reason.
    return tool.fail(Refused, link,
                     outcome.reason.empty() ? "nothing was started" : word + ": " + outcome.reason);
}

} // namespace

void addOpenCommand(Tool& tool)
{
    const auto link = std::make_shared<std::string>();
    CLI::App& command = tool.add(
        "open", "Open a link as the menu does: what opened it, or why nobody did, and the launcher's answer");
    command.add_option("LINK", *link, "A link such as tel:+12025550123")->required();
    tool.onRun(command, [&tool, link] { return open(tool, *link); });
}
