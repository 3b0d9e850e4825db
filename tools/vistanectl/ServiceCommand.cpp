#include "Commands.h"

#include "HostBus.h"
#include "StandInService.h"
#include "Tool.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <map>
#include <memory>

#include <signal.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace {

struct Arguments
{
    StandInService::Plan plan;
    std::string outcome = "success";
    bool once = false;
};

const std::map<std::string, StandInService::Outcome> outcomes = {
    {"success", StandInService::Outcome::Success},
    {"connect-error", StandInService::Outcome::ConnectError},
    {"download-error", StandInService::Outcome::DownloadError},
    {"queue", StandInService::Outcome::Queue},
};

// While it lives, the signals that ask a program to end make the event loop return 0. To be made before the bus
// is used, whose thread would get them otherwise.
class EndOnSignal
{
public:
    EndOnSignal() : mFile(blockedSignals()), mNotifier(mFile, QSocketNotifier::Read)
    {
        QObject::connect(&mNotifier, &QSocketNotifier::activated, [] { QCoreApplication::quit(); });
    }
    ~EndOnSignal() { close(mFile); }

private:
    static int blockedSignals()
    {
        sigset_t ending;
        sigemptyset(&ending);
        sigaddset(&ending, SIGINT);
        sigaddset(&ending, SIGTERM);
        pthread_sigmask(SIG_BLOCK, &ending, nullptr);
        return signalfd(-1, &ending, SFD_CLOEXEC);
    }

    const int mFile;
    QSocketNotifier mNotifier;
};

void report(bool json, const std::string& what, const std::string& details)
{
    if (json)
        Output::line(QJsonObject{{"what", Output::toJson(what)}, {"details", Output::toJson(details)}});
    else
        Output::line(details.empty() ? what : what + '\t' + details);
}

int serve(const Tool& tool, const Arguments& arguments)
{
    const EndOnSignal endOnSignal;
    if (!HostBus::isConnected())
        return tool.fail(NoBus, "service", "there is no session bus");
    if (!HostBus::ownServiceName())
        return tool.fail(Refused, "service", "another service is running");
    {
        StandInService::Plan plan = arguments.plan;
        plan.outcome = outcomes.at(arguments.outcome);
        StandInService service(plan, [&tool](const std::string& what, const std::string& details) {
            report(tool.json(), what, details);
        });
        if (arguments.once)
            QObject::connect(&service, &StandInService::runOver, [] { QCoreApplication::quit(); });
        // Without a bus nobody can ask for anything any more.
        if (!HostBus::onLost(QCoreApplication::instance(), SLOT(quit())) || !HostBus::flush())
            return tool.fail(NoBus, "service", "there is no session bus");
        report(tool.json(), "ready", {});
        QCoreApplication::exec();
    }
    return HostBus::flush() ? Done : tool.fail(NoBus, "service", "the session bus is gone");
}

} // namespace

void addServiceCommand(Tool& tool)
{
    const auto arguments = std::make_shared<Arguments>();
    CLI::App& command = tool.add("service", "Stand in for the headlines service: answer refreshes by hand");
    command.add_option("--outcome", arguments->outcome, "How a refresh ends; queue: it is refused")
        ->check(CLI::IsMember(&outcomes))
        ->capture_default_str();
    command.add_option("--step-ms", arguments->plan.stepMs, "Milliseconds from one status to the next")
        ->check(CLI::Range(0, 3600000))
        ->capture_default_str();
    command.add_option("--items", arguments->plan.items, "Stories that a successful refresh downloads")
        ->capture_default_str();
    command.add_option("--bytes", arguments->plan.bytes, "Bytes that it downloads")->capture_default_str();
    command.add_flag("--once", arguments->once, "End after one refresh, however it ends");
    command.footer("Runs until it is ended. Says \"ready\" once it cannot miss a request, then a line for each "
                   "thing it does.\n"
                   "A request during a refresh is refused, as the service does while one is queued. Only one "
                   "service runs at a time.");
    tool.onRun(command, [&tool, arguments](CoreStore&) { return serve(tool, *arguments); });
}
