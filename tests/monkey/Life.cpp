#include "Life.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr XPhone::Milliseconds patience(20000);
constexpr double answerLimit = 200;   // milliseconds
constexpr double pauseOfRetry = 2000; // milliseconds
constexpr int weighingsToGetWarm = 6; // by then every page and pop-up was open
constexpr int titleHeight = 20;
constexpr uintmax_t longestLog = 4 << 20;

const char* logFile()
{
    return std::getenv("VISTANE_LOG");
}

// An accepted Retry of a failed refresh blocks for two seconds, as it must, and then says so in the log.
int pausesSince(uintmax_t logSize)
{
    std::ifstream log(logFile());
    log.seekg(static_cast<std::streamoff>(logSize));
    int pauses = 0;
    for (std::string line; std::getline(log, line);)
        pauses += line.ends_with("ManRefreshView::errorLSK");
    return pauses;
}

// Milliseconds for which threads of these processes were ready to run and others had the processors.
double waitedFor(std::initializer_list<pid_t> processes)
{
    double all = 0;
    std::error_code gone;
    for (pid_t process : processes)
        for (const auto& thread : fs::directory_iterator("/proc/" + std::to_string(process) + "/task", gone)) {
            std::ifstream file(thread.path() / "schedstat");
            double ran = 0;
            double waited = 0;
            file >> ran >> waited;
            all += waited / 1e6;
        }
    return all;
}

long kilobytesOf(pid_t pid)
{
    std::ifstream status("/proc/" + std::to_string(pid) + "/status");
    long kilobytes = 0;
    for (std::string word; status >> word && word != "RssAnon:";)
        ;
    status >> kilobytes;
    return kilobytes;
}

} // namespace

Life::Life(XPhone& phone, Measures& measures, long growthLimit)
    : mPhone(phone), mMeasures(measures), mGrowthLimit(growthLimit)
{
    ++mMeasures.lives;
    if (!mPhone.start({"vistane-menu"}) || !mPhone.firstPaint(patience))
        fail("does not start");
    check();
    mRootBar = mPhone.picture(titleHeight);
}

// By its second answer the program has dealt with what was pressed, by its third it has painted what came of it.
void Life::check()
{
    for (int i = 0; i < 3 && !mOver; ++i)
        ask();
}

// Of the time until the answer, only the pauses of retries are the program's by right; and what it, the X server and
// this process waited for a processor is the fault of a loaded machine.
void Life::ask()
{
    const uintmax_t logSize = fs::file_size(logFile());
    const std::initializer_list<pid_t> onTheWay = {mPhone.pid(), mPhone.server(), getpid()};
    const double waited = waitedFor(onTheWay);
    const auto answer = mPhone.answerTime(patience);
    if (!answer)
        return end();
    double taken = std::chrono::duration<double, std::milli>(*answer).count();
    if (taken > answerLimit / 10) {
        const int pauses = pausesSince(logSize);
        mMeasures.pauses += pauses;
        taken -= pauses * pauseOfRetry + waitedFor(onTheWay) - waited;
    }
    mMeasures.worstAnswer = std::max(mMeasures.worstAnswer, taken);
    if (taken > answerLimit)
        fail("hangs for " + std::to_string(taken) + " ms");
    if (logSize > longestLog)
        fs::resize_file(logFile(), 0);
}

bool Life::isAtRoot()
{
    check();
    return !mOver && mPhone.picture(titleHeight) == mRootBar;
}

void Life::weigh()
{
    const long weight = kilobytesOf(mPhone.pid());
    if (++mWeighings <= weighingsToGetWarm)
        return;
    mLightest = mWeighings == weighingsToGetWarm + 1 ? weight : std::min(mLightest, weight);
    ++mMeasures.weighings;
    mMeasures.worstGrowth = std::max(mMeasures.worstGrowth, weight - mLightest);
    if (weight - mLightest > mGrowthLimit)
        fail("has grown by " + std::to_string(weight - mLightest) + " KB");
}

void Life::end()
{
    const auto status = mPhone.ended(patience);
    mOver = true;
    if (!status)
        fail("neither answers nor ends");
    else if (WIFSIGNALED(*status))
        fail("died of signal " + std::to_string(WTERMSIG(*status)));
    else if (*status != 0)
        fail("ended with status " + std::to_string(WEXITSTATUS(*status)));
}

void Life::fail(const std::string& fault)
{
    mOver = true;
    mFault = fault;
}
