#pragma once

#include <cstdio>
#include <string>
#include <vector>

// Collects the platform log while it lives.
class LogCapture
{
public:
    LogCapture();
    ~LogCapture();

    // Everything logged so far.
    std::string text() const;
    // Its lines with the source line blanked: "(SettingHelper:*)[~~~~vistane~~~~]cannot ...".
    std::vector<std::string> lines() const;

private:
    FILE* mFile;
    FILE* mPrevious;
};
