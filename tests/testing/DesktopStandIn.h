#pragma once

#include <QTemporaryDir>

#include <string>
#include <vector>

// Stands in for the programs of a desktop while it lives: they come first in PATH, and record how they were started.
class DesktopStandIn
{
public:
    struct Call
    {
        std::vector<std::string> words; // its name and its arguments, to the byte
        std::string files;              // what its descriptors 0 and up are open on, one a line
        std::string folder;             // the one it was started in
        int session;
    };

    explicit DesktopStandIn(const std::vector<std::string>& programs = {"xdg-open"});
    ~DesktopStandIn();

    // The calls since the last take(), as soon as there are `count` of them or after five seconds.
    std::vector<Call> take(size_t count);

private:
    QTemporaryDir mDir;
    QByteArray mPath;
};
