#include "Log.h"

#include "aplog.h"

#include <cstdarg>
#include <cstdio>
#include <string_view>

void Log::operator()(At at, const char* format, ...) const
{
    if (at.level > maxLevel)
        return;
    FILE* stream = libaplog_to_module_ptr ? libaplog_to_module_ptr : stdout;

    // The parts of a line stay together even when another thread of a library writes to the same stream.
    flockfile(stream);
    std::fprintf(stream, "(%s:%d)[~~~~vistane~~~~]", mModule, at.line);
    va_list arguments;
    va_start(arguments, format);
    std::vfprintf(stream, format, arguments);
    va_end(arguments);
    if (!std::string_view(format).ends_with('\n'))
        std::fputc('\n', stream);
    funlockfile(stream);
}
