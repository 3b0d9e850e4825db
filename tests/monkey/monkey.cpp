#include "Dice.h"
#include "Life.h"
#include "Stream.h"

#include "aplog.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>
#include <deque>

namespace {

constexpr int lifeLengths[] = {10, 30, 100, 1000, 30000}; // events, on average
constexpr long eventsToCheck = 20;
constexpr long eventsToWeigh = 500;
constexpr long eventsToReport = 5000;
constexpr size_t eventsToTell = 60;

void report(long events, XPhone::Clock::time_point began, const Measures& measures)
{
    const double seconds = std::chrono::duration<double>(XPhone::Clock::now() - began).count();
    std::printf("%ld events, %.0f a second, %d lives, %d pauses; worst answer %.0f ms; worst growth %ld KB in "
                "%d weighings\n",
                events, static_cast<double>(events) / seconds, measures.lives, measures.pauses,
                measures.worstAnswer, measures.worstGrowth, measures.weighings);
    std::fflush(stdout);
}

} // namespace

// monkey GROWTH-KB SEED COUNT [FIRST]: events FIRST to FIRST + COUNT - 1 of a stream, against vistane-menu in $PATH, on
// the store and with the log file of the environment. Every event and every life has dice of its own, so the life in
// which a fault was seen can be had again alone, from its first event on.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (argc < 4)
        return 2;
    libaplog_to_module_ptr = std::fopen("/dev/null", "w");
    const long growthLimit = std::atol(argv[1]);
    const auto seed = static_cast<uint64_t>(std::atol(argv[2]));
    const long first = argc > 4 ? std::atol(argv[4]) : 0;
    const long end = first + std::atol(argv[3]);
    const auto began = XPhone::Clock::now();
    XPhone phone;
    Measures measures;
    for (long event = first; event < end;) {
        const long born = event;
        const int length = Dice(~seed, static_cast<uint64_t>(born)).pick(lifeLengths);
        bool wornOut = false;
        std::deque<std::string> last;
        Stream::restoreStore();
        Life life(phone, measures, growthLimit);
        while (!life.isOver()) {
            Dice dice(seed, static_cast<uint64_t>(event));
            const bool ending = event >= end || wornOut || dice.oneIn(static_cast<size_t>(length));
            last.push_back(std::to_string(event) + ' ' +
                           (ending ? Stream::askToEnd(life, dice) : Stream::happen(life, dice)));
            if (last.size() > eventsToTell)
                last.pop_front();
            ++event;
            if (ending || event % eventsToCheck == 0)
                life.check();
            if (event % eventsToWeigh == 0 && !life.isOver()) {
                if (Stream::comeHome(life))
                    life.weigh();
                else
                    wornOut = true;
            }
            if (event % eventsToReport == 0)
                report(event - first, began, measures);
        }
        if (life.fault().empty())
            continue;
        std::printf(
            "The program %s: seed %llu, a life from event %ld on, seen at event %ld. The last events:\n",
            life.fault().c_str(), static_cast<unsigned long long>(seed), born, event);
        for (const std::string& what : last)
            std::printf("%s\n", what.c_str());
        return 1;
    }
    report(end - first, began, measures);
}
