#include "aplog.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>

FILE* libaplog_to_module_ptr = nullptr;

int _aplog_init_orig(const char* module, int /*flags*/)
{
    // Whoever reads the log as it grows is to see each line when it is written, on a pipe too.
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    const char* path = std::getenv("VISTANE_LOG");
    FILE* stream = path && *path ? std::fopen(path, "ae") : nullptr;
    if (!stream && path && *path)
        std::fprintf(stderr, "%s: cannot write the log %s: %s\n", module, path, std::strerror(errno));
    // Line by line, so that the last lines are not lost with a program that is killed.
    std::setvbuf(stream ? stream : stdout, nullptr, _IOLBF, BUFSIZ);
    if (stream)
        libaplog_to_module_ptr = stream;
    return 0;
}
