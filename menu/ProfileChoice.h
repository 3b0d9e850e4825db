#pragma once

#include <string>

// The choice of the operator profile under which the service runs. Texts are UTF-8. GUI thread only.
namespace ProfileChoice {

// Makes the platform's object for the profiles, which lives as long as the process. The others do so themselves
// when they come first.
void prepare();

std::string list();    // the ListText of the profiles; empty when they can't be read
std::string current(); // the name of the profile in force

// Puts the profile in line `i` of the last list() in force, and from then on disables the entries that a
// profile fixes, even when the profile can't be installed. Nothing when there is no such line.
void choose(int i);

// Whether the user may not choose at all.
bool isFixed();

} // namespace ProfileChoice
