#pragma once

#include "LinkAnswer.h"

#include <QStringList>

// Programs of the desktop, started directly by the words of a command, never through a shell. Each lives by itself: in a
// session of its own, with nothing of this process's input, output or open files. Where this process is a unit of systemd,
// the program becomes another one.
namespace DesktopProgram {

// Starts a program that nobody has to wait for. False when it can't be started.
bool start(const QStringList& command);

// Starts a program that opens a link and tells by its exit status whether somebody took it. Calls `answered` once, from
// the event loop, after the given time at the latest. The program may take longer than that, or than this process lives.
void open(const QStringList& command, LinkAnswered answered, int milliseconds = 10'000);

} // namespace DesktopProgram
