#pragma once

#include <string>

class Vt_Event;

// What the details page shows: facts about the service, as UTF-8 texts that are made afresh by every call. A
// label that the operator has not set shows as nothing.
namespace StatusValues {

// What the texts know that no store does. One per process, living as long as it does.
struct State
{
    bool updateInProgress = false;
    std::string totalMemoryText = "680 K";
    std::string freeMemoryText = "680 K";
    std::string usedMemoryText = "0 K";
};
State& state();

// Takes what an event of the service says into the state. Other events change nothing.
void follow(const Vt_Event& event);

std::string lastConnection(); // date and local time, a line feed, and the result
// The number of channels, then a line for each; empty when the content can't be read.
std::string subscription();
std::string homeNetwork();    // empty when the device can't tell
std::string currentNetwork(); // likewise
std::string downloadMode();   // when the service may download
std::string roamingStatus();  // roaming or not; a friendly network counts as home
std::string activity();       // what the service is doing now
std::string memory();         // three lines: content, free and total memory

} // namespace StatusValues
