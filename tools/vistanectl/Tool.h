#pragma once

#include "Output.h"

#include <CLI/CLI.hpp>

#include <functional>
#include <string>

class CoreStore;

// How a command ends; the program's exit status.
enum Exit {
    Done = 0,
    Refused = 1, // or not found
    Usage = 2,
    StoreUnusable = 3,
    NoBus = 4,
};

// For Option::check(): whether `text` is something that lists can show in a line. Returns what is wrong.
std::string isLine(const std::string& text);

// The program as its commands see it: where they are registered, and what they share.
class Tool
{
public:
    Tool();

    // Adds a command, or a group when it is given commands of its own as `parent`. Owned by the tool.
    CLI::App& add(const char* name, const char* help, CLI::App* parent = nullptr);

    // Says what a command does. The function runs after everything was parsed, and its result is the exit
    // status.
    using Run = std::function<int()>;
    void onRun(CLI::App& command, Run run);
    // The same for a command that needs the settings store, which fails when there is none on disk.
    using RunOnStore = std::function<int(CoreStore&)>;
    void onRun(CLI::App& command, RunOnStore run);

    // Parses the command line (in reverse, as CLI11 wants it), runs the command and returns the exit status.
    int run(std::vector<std::string> reversedArguments);

    // Says "vistanectl: <about>: <problem>" on standard error and returns `exit`.
    int fail(Exit exit, const std::string& about, const std::string& problem) const;
    // The same as a warning, which leaves the exit status alone.
    void warn(const std::string& about, const std::string& problem) const { fail(Done, about, problem); }
    // The exit status for a StoreStatus; anything but success is said as above.
    int finish(int storeStatus, const std::string& about) const;

    bool json() const { return mJson; }

private:
    CLI::App mApp;
    bool mJson = false;
    Run mRun;
};
