#pragma once

#include "Failure.h"

#include <string>
#include <string_view>
#include <vector>

// The one place where the platform asks other programs for something: a word on the bus, then a program started
// directly, never through a shell. What is started lives on by itself: in a session of its own, with nothing
// of this process's input, output or open files, and nobody has to wait for it.
namespace Handover {

// Sends the signal Request of org.vistane.Platform1 at /Vistane/Platform: the operation's name and its
// arguments in order, as text (bytes that are no UTF-8, and NULs, become U+FFFD; numbers in decimal, flags
// "true" or "false", no text "").
void announce(std::string_view operation, const std::vector<std::string>& arguments);

// Says on the bus, in the log and to whoever tells people that what was announced last comes to nothing. -1.
int refuse(Failure::Kind kind, std::string_view about, const std::string& reason);

// Whether requests are carried out, too; with VISTANE_HANDOVER=off they are only announced, and count as done.
bool isOn();

// Gives a link to the desktop's opener. 0 when that was started, -1 when the link is refused (see
// DesktopLink::checked) or there is no opener.
int openLink(std::string_view link);

// Starts the program that the table of applications has for `appId`, `argument` added as one more argument
// unless it is empty. 0 when it was started, -1 when the table has no such identifier or none of its programs
// is installed.
int startApplication(std::string_view appId, std::string_view argument);

// The program last started by this process and its arguments; empty when none was. And why the last request that was
// refused was.
const std::vector<std::string>& lastStarted();
const std::string& lastReason();

} // namespace Handover
