#pragma once

#include <functional>
#include <string>

// What somebody who was asked to open a link made of it.
struct LinkAnswer
{
    enum What {
        Absent,    // nobody was there, so the link can be given to somebody else
        Opened,    // as far as its opener knows
        Cancelled, // by the person
        Refused,
        Unknown, // it may have been opened, and nobody says so
    };

    What what;
    std::string reason = {}; // in words, unless it was opened or nothing is wrong
};

using LinkAnswered = std::function<void(const LinkAnswer&)>;
