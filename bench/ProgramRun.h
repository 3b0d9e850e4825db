#pragma once

#include <map>
#include <string>

// By their names; times in milliseconds, memory in megabytes.
using Figures = std::map<std::string, double>;

// These run a program from its start to its end on the X display that $DISPLAY names, and add what they measured.
// False when it can't be had; standard error says why.

// "start", until its window shows what it shows at rest; "cpu", of all its threads, for that; "pss" and "uss" a second
// later; "key", from a key to the row that it highlights.
bool measureRun(const std::string& program, Figures& figures);
// "wakeups": how often its threads woke up or lost the processor in that time, after nothing on the screen moved.
bool measureRest(const std::string& program, int seconds, Figures& figures);
