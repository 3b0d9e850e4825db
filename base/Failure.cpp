#include "Failure.h"

#include "Text.h"

#include <utility>

namespace {

constexpr size_t longestAbout = 40;

std::string shortLine(std::string_view about)
{
    const std::string line = Text::withoutControls(Text::cleanUtf8(about));
    size_t end = 0;
    for (size_t next = 0; next <= longestAbout && Text::decode(line, next);)
        end = next <= longestAbout ? next : end;
    return line.substr(0, end);
}

Failure::Listener& theListener()
{
    static Failure::Listener listener;
    return listener;
}

} // namespace

void Failure::setListener(Listener listener)
{
    theListener() = std::move(listener);
}

void Failure::tell(Kind kind, std::string_view about)
{
    if (const Listener& listener = theListener())
        listener(kind, shortLine(about));
}
