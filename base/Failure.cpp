#include "Failure.h"

#include "Text.h"

#include <utility>

namespace {

constexpr size_t longestAbout = 40;

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
        listener(kind, Text::withoutControls(Text::cleanUtf8(about.substr(0, longestAbout))));
}
