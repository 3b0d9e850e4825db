#include "Log.h"

#include "aplog.h"

#include <cstdarg>
#include <cstdio>
#include <string>

namespace {

// The message without its line end; a message that cannot be formatted becomes the format itself.
[[gnu::format(printf, 1, 0)]] std::string formatted(const char* format, va_list arguments)
{
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    std::string text = length < 0 ? format : std::string(static_cast<size_t>(length), '\0');
    if (length > 0)
        std::vsnprintf(text.data(), text.size() + 1, format, again);
    va_end(again);
    if (text.ends_with('\n'))
        text.pop_back();
    return text;
}

} // namespace

void Log::operator()(At at, const char* format, ...) const
{
    if (at.level > maxLevel)
        return;
    va_list arguments;
    va_start(arguments, format);
    const std::string text = formatted(format, arguments);
    va_end(arguments);
    FILE* stream = libaplog_to_module_ptr ? libaplog_to_module_ptr : stdout;
    std::fprintf(stream, "(%s:%d)[~~~~vistane~~~~]%s\n", mModule, at.line, text.c_str());
}
