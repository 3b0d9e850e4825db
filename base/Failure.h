#pragma once

#include <functional>
#include <string>
#include <string_view>

// What failed below the program, and the program does not tell: whoever has a screen tells the person before it.
namespace Failure {

enum class Kind {
    NotSaved,      // a choice could not be written
    NoStore,       // the store can't be used now, so no choice is saved
    NotOpened,     // nobody takes such a link; about: its scheme, with the colon
    NotKnown,      // nobody says whether such a link was opened; about: the same
    NoApplication, // nothing here can serve a request
};

// `about` is one line of a length that a screen can show.
using Listener = std::function<void(Kind kind, const std::string& about)>;

// There is one listener in a process; an empty one is none.
void setListener(Listener listener);

// Tells the listener at once. What is told comes from outside: it is cleaned and cut here.
void tell(Kind kind, std::string_view about = {});

} // namespace Failure
