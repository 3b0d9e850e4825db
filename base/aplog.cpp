#include "aplog.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>

FILE* libaplog_to_module_ptr = nullptr;

int _aplog_init_orig(const char* module, int /*flags*/)
{
    // Line by line wherever it goes: whoever reads the log sees it grow, and a program that is killed loses
    // none.
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    const char* path = std::getenv("VISTANE_LOG");
    if (!path || !*path)
        return 0;
    FILE* stream = std::fopen(path, "ae");
    if (!stream) {
        std::fprintf(stderr, "%s: cannot write the log %s: %s\n", module, path, std::strerror(errno));
        return 0;
    }
    std::setvbuf(stream, nullptr, _IOLBF, BUFSIZ);
    libaplog_to_module_ptr = stream;
    return 0;
}
