#include "Log.h"

#include "aplog.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>

void Log::operator()(At at, const char* format, ...) const
{
    if (at.level > maxLevel)
        return;
    char* text = nullptr;
    va_list arguments;
    va_start(arguments, format);
    const int length = vasprintf(&text, format, arguments);
    va_end(arguments);
    if (length < 0)
        return;
    // The line end is looked for in the message, which its arguments may have brought.
    const bool ended = length > 0 && text[length - 1] == '\n';
    std::fprintf(libaplog_to_module_ptr ? libaplog_to_module_ptr : stdout, "(%s:%d)[~~~~vistane~~~~]%s%s",
                 mModule, at.line, text, ended ? "" : "\n");
    std::free(text);
}
