#include "aplog.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

FILE* libaplog_to_module_ptr = nullptr;

namespace {

constexpr off_t largestLog = 1024 * 1024;

// The file that VISTANE_LOG names. One for the process.
struct LogFile
{
    std::string path;
    int file = -1;
};
LogFile theLog;

// A pipe that nobody reads, or does not read fast enough, must not hold the program up.
int openLog(const char* path)
{
    return open(path, O_WRONLY | O_APPEND | O_CREAT | O_NONBLOCK | O_CLOEXEC, 0666);
}

bool isStillNamed(const struct stat& open)
{
    struct stat named = {};
    return stat(theLog.path.c_str(), &named) == 0 && named.st_dev == open.st_dev && named.st_ino == open.st_ino;
}

// Gives a full log another name and begins a new one. Several programs may write to it: the first that finds it full
// renames it, under its lock, and the others follow.
void rotate()
{
    struct stat status = {};
    if (fstat(theLog.file, &status) != 0 || !S_ISREG(status.st_mode) || status.st_size < largestLog ||
        flock(theLog.file, LOCK_EX | LOCK_NB) != 0)
        return;
    if (isStillNamed(status))
        rename(theLog.path.c_str(), (theLog.path + ".1").c_str());
    const int next = openLog(theLog.path.c_str());
    if (next >= 0)
        close(std::exchange(theLog.file, next));
    else
        flock(theLog.file, LOCK_UN);
}

// Line by line, as the stream is set up; a longer one comes in pieces.
ssize_t writeLog(void*, const char* text, size_t size)
{
    static bool atLineStart = true;
    if (atLineStart)
        rotate();
    atLineStart = size > 0 && text[size - 1] == '\n';
    const ssize_t written = write(theLog.file, text, size);
    return written < 0 ? 0 : written;
}

} // namespace

int _aplog_init_orig(const char* module, int /*flags*/)
{
    // Line by line wherever it goes: whoever reads the log sees it grow, and a program that is killed loses
    // none.
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    const char* path = std::getenv("VISTANE_LOG");
    if (!path || !*path)
        return 0;
    theLog = {path, openLog(path)};
    FILE* stream =
        theLog.file >= 0 ? fopencookie(nullptr, "a", {nullptr, writeLog, nullptr, nullptr}) : nullptr;
    if (!stream) {
        std::fprintf(stderr, "%s: cannot write the log %s: %s\n", module, path, std::strerror(errno));
        return 0;
    }
    std::setvbuf(stream, nullptr, _IOLBF, BUFSIZ);
    libaplog_to_module_ptr = stream;
    return 0;
}
