#pragma once

#include "Text.h"

#include <algorithm>
#include <string>

// Choices as one text: a line for each, with a mark before one that is shown greyed and can't be chosen. The
// mark itself is never shown.
namespace ListText {

inline constexpr char disabledMark[] = "DISABLE:";

// The line of a choice, without its line feed.
inline std::string choice(const std::string& label, bool selectable)
{
    return selectable ? label : disabledMark + label;
}

inline bool isDisabled(const std::string& choice)
{
    return choice.starts_with(disabledMark);
}

// Whether a name would be taken for such a line. The phone's characters have 16 bits, and what is cut to them can read as
// the mark.
inline bool beginsWithMark(std::string_view name)
{
    size_t at = 0;
    for (const char expected : std::string_view(disabledMark)) {
        const auto character = Text::decode(name, at);
        if (!character || (*character & 0xffff) != static_cast<char32_t>(expected))
            return false;
    }
    return true;
}

// A name as one line: the phone's characters of 16 bits can make a line feed of another character, which would count
// as a line more.
inline std::string oneLine(std::string name)
{
    std::replace(name.begin(), name.end(), '\n', ' ');
    return name;
}

// What people read of a choice.
inline std::string label(const std::string& choice)
{
    return isDisabled(choice) ? choice.substr(sizeof disabledMark - 1) : choice;
}

} // namespace ListText
