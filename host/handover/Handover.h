#pragma once

#include "Failure.h"

#include <string>
#include <string_view>
#include <vector>

// The one place where the platform asks other programs for something: a word on the bus, then the desktop portal or a
// program (see DesktopProgram.h). Nothing waits for them; what becomes of a link is told when they say it.
namespace Handover {

// Sends the signal Request of org.vistane.Platform1 at /Vistane/Platform: the operation's name and its
// arguments in order, as text (bytes that are no UTF-8, and NULs, become U+FFFD; numbers in decimal, flags
// "true" or "false", no text "").
void announce(std::string_view operation, const std::vector<std::string>& arguments);

// Says on the bus, in the log and to whoever tells people that what was announced last comes to nothing. -1.
int refuse(Failure::Kind kind, std::string_view about, const std::string& reason);

// Whether requests are carried out, too; with VISTANE_HANDOVER=off they are only announced, and count as done.
bool isOn();

// Gives a link to the desktop portal, or where there is none to the handler that GIO knows. 0 when it is on its way, -1
// when the link is refused (see DesktopLink::checked). A link that nobody opens is refused later, from the event loop.
int openLink(std::string_view link);

// Starts the program that the table of applications has for `appId`, `argument` added as one more argument
// unless it is empty. 0 when it was started, -1 when the table has no such identifier or none of its programs
// is installed.
int startApplication(std::string_view appId, std::string_view argument);

// What became of a request.
struct Outcome
{
    enum What { Nothing, UnderWay, Done, Cancelled, Refused, Unknown };

    What what = Nothing;              // Nothing: there was none, or it was only announced
    std::vector<std::string> started; // what was asked last to carry it out, word by word
    std::string reason;               // why it is not done
};

// That of this process's last request. Runs the event loop until it is known, which it is within three minutes.
const Outcome& lastOutcome();

} // namespace Handover
