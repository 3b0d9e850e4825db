#pragma once

#include <string>

// What one run of a program shows on the X display that $DISPLAY names.
struct ProgramFigures
{
    double startMs; // until the first window shows what it shows at rest
    double cpuMs;   // of all threads, for that
    double pssMb;   // a second later
    double ussMb;
    double keyMs; // from a key to the row that it highlights
};

// These run the program from its start to its end. False when a figure can't be had; standard error says which.
bool measureRun(const std::string& program, ProgramFigures& figures);
// How often its threads woke up (or lost the processor) in that time, once nothing on the screen moved any more.
bool countWakeups(const std::string& program, int seconds, double& wakeups);
