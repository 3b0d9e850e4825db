#include "Tool.h"

#include "CoreStore.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

std::string isLine(const std::string& text)
{
    if (text.empty())
        return "is empty";
    return text.find('\n') == std::string::npos ? "" : "has more than one line";
}

Tool::Tool()
    : mApp("Looks into and steers the headlines service: settings, operator packs, device, events.",
           "vistanectl")
{
    mApp.require_subcommand(1);
    mApp.fallthrough();
    mApp.set_version_flag("--version", "vistanectl " VISTANE_VERSION, "Print the version and exit");
    mApp.add_flag("--json", mJson, "Print results as JSON");
    mApp.failure_message([](const CLI::App*, const CLI::Error& error) {
        return "vistanectl: " + Output::escaped(error.what()) + "; --help tells more\n";
    });
    mApp.footer("A value that begins with \"-\" and is no number goes behind \"--\".\n"
                "Exit status: 0 done, 1 refused or not found, 2 wrong usage, 3 store unusable, 4 no bus.");
}

CLI::App& Tool::add(const char* name, const char* help, CLI::App* parent)
{
    if (!parent)
        return *mApp.add_subcommand(name, help);
    parent->require_subcommand(1);
    return *parent->add_subcommand(name, help);
}

void Tool::onRun(CLI::App& command, Run run)
{
    command.callback([this, run = std::move(run)] { mRun = run; });
}

void Tool::onRun(CLI::App& command, RunOnStore run)
{
    onRun(command, Run([this, run = std::move(run)] {
              CoreStore& store = CoreStore::instance();
              return store.isOnDisk() ? run(store)
                                      : fail(StoreUnusable, "the settings store", "cannot be used");
          }));
}

int Tool::run(std::vector<std::string> reversedArguments)
{
    try {
        mApp.parse(std::move(reversedArguments));
    } catch (const CLI::ParseError& error) {
        // Help is such an "error" too. A word that is no command would pass for a missing one.
        const std::vector<std::string> unknown = mApp.remaining();
        if (error.get_exit_code() != 0 && !unknown.empty())
            return fail(Usage, unknown.front(), "is not known here; --help tells what is");
        return mApp.exit(error) == 0 ? Done : Usage;
    }
    int exit = Done;
    try {
        exit = mRun();
    } catch (const std::exception& error) { // such as std::bad_alloc, by a library
        return fail(Refused, "the command", error.what());
    }
    // Results that nobody can read are no success.
    if (std::fflush(stdout) != 0 || std::ferror(stdout))
        return fail(Refused, "standard output", std::strerror(errno));
    return exit;
}

int Tool::fail(Exit exit, const std::string& about, const std::string& problem) const
{
    std::fprintf(stderr, "vistanectl: %s: %s\n", Output::escaped(about).c_str(),
                 Output::escaped(problem).c_str());
    return exit;
}

int Tool::finish(int storeStatus, const std::string& about) const
{
    switch (storeStatus) {
    case STORE_OK:
        return Done;
    case STORE_NOT_FOUND:
        return fail(Refused, about, "not found");
    case STORE_WRONG_TYPE:
        return fail(Refused, about, "cannot have that value");
    case STORE_UNWRITABLE:
        return fail(StoreUnusable, about, "the settings store cannot be written");
    case STORE_BUSY:
        return fail(StoreUnusable, about, "the settings store is locked by another program");
    default:
        return fail(StoreUnusable, about, "the settings store failed");
    }
}
