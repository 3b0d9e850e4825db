#include "ProgramRun.h"

#include "XPhone.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <thread>

#include <X11/keysym.h>

namespace {

using Milliseconds = XPhone::Milliseconds;

// Longer than a program takes between two paints, even where others keep the processor busy.
constexpr Milliseconds startRest(300);
constexpr Milliseconds keyRest(80);
// Longer than a text rests before it runs.
constexpr Milliseconds longRest(3000);
constexpr Milliseconds patience(20000);

bool failed(const std::string& program, const char* what)
{
    std::fprintf(stderr, "%s: %s\n", program.c_str(), what);
    return false;
}

double inMs(XPhone::Clock::duration time)
{
    return std::chrono::duration<double, std::milli>(time).count();
}

double cpuMs(pid_t pid)
{
    clockid_t clock;
    timespec used = {};
    if (clock_getcpuclockid(pid, &clock) == 0)
        clock_gettime(clock, &used);
    return static_cast<double>(used.tv_sec) * 1e3 + static_cast<double>(used.tv_nsec) / 1e6;
}

// The sum of the lines of a file of /proc whose names begin with one of `names`, such as "Pss:".
double sumOf(const std::filesystem::path& file, std::initializer_list<const char*> names)
{
    double sum = 0;
    std::ifstream lines(file);
    for (std::string line; std::getline(lines, line);)
        for (const std::string name : names)
            if (line.starts_with(name))
                sum += std::stod(line.substr(name.size()));
    return sum;
}

double switches(pid_t pid)
{
    double sum = 0;
    for (const auto& task : std::filesystem::directory_iterator("/proc/" + std::to_string(pid) + "/task"))
        sum += sumOf(task.path() / "status", {"voluntary_ctxt_switches:", "nonvoluntary_ctxt_switches:"});
    return sum;
}

// There and back again, so that it matters neither how many rows there are nor where a page ends; the middle one.
bool measureKey(XPhone& phone, double& middle)
{
    double times[5];
    for (size_t i = 0; i < std::size(times); ++i) {
        phone.forgetPaints();
        const auto pressed = XPhone::Clock::now();
        phone.press(i % 2 == 0 ? XK_Down : XK_Up);
        const auto painted = phone.finalPaint(keyRest, patience);
        if (!painted)
            return false;
        times[i] = inMs(*painted - pressed);
    }
    std::nth_element(times, times + 2, std::end(times));
    middle = times[2];
    return true;
}

bool end(XPhone& phone)
{
    phone.closeWindow();
    return phone.ended(patience) == 0;
}

} // namespace

bool measureRun(const std::string& program, Figures& figures)
{
    XPhone phone;
    const auto started = XPhone::Clock::now();
    const auto painted = phone.start({program}) ? phone.finalPaint(startRest, patience) : std::nullopt;
    if (!painted)
        return failed(program, "shows no window");
    figures["start"] = inMs(*painted - started);
    figures["cpu"] = cpuMs(phone.pid());
    std::this_thread::sleep_for(std::chrono::seconds(1));
    const std::string memory = "/proc/" + std::to_string(phone.pid()) + "/smaps_rollup";
    figures["pss"] = sumOf(memory, {"Pss:"}) / 1024;
    figures["uss"] = sumOf(memory, {"Private_Clean:", "Private_Dirty:"}) / 1024;
    if (figures["pss"] <= 0 || figures["cpu"] <= 0)
        return failed(program, "/proc does not tell its memory or its time");
    if (!measureKey(phone, figures["key"]))
        return failed(program, "paints nothing at a key");
    return end(phone) || failed(program, "does not end well");
}

bool measureRest(const std::string& program, int seconds, Figures& figures)
{
    XPhone phone;
    if (!phone.start({program}) || !phone.finalPaint(longRest, patience))
        return failed(program, "does not come to rest");
    const double before = switches(phone.pid());
    std::this_thread::sleep_for(std::chrono::seconds(seconds));
    figures["wakeups"] = switches(phone.pid()) - before;
    return (before > 0 && end(phone)) || failed(program, "did not last its rest");
}
