#pragma once

#include <string>

class Dice;
class Life;

// What befalls the program. It may not have seen it yet when these return.
namespace Stream {

// Does what the dice say, and says what it was.
std::string happen(Life& life, Dice& dice);
// Likewise one of the ways to make the program end.
std::string askToEnd(Life& life, Dice& dice);

// Lets go of everything, restores the store and goes back to the root page. False when that is not found, or opens
// nothing any more, as it may once it was built from nonsense.
bool comeHome(Life& life);
// Everything in the store as the pack has it.
void restoreStore();

} // namespace Stream
