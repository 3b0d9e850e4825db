#pragma once

#include "aplog.h"

#include <cstdio>
#include <cstdlib>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

// Collects the platform log while it lives.
class LogCapture
{
public:
    LogCapture() { libaplog_to_module_ptr = mFile; }
    ~LogCapture()
    {
        libaplog_to_module_ptr = mPrevious;
        std::fclose(mFile);
        std::free(mText);
    }
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    // Everything logged so far.
    std::string text() const
    {
        std::fflush(mFile);
        return {mText, mSize};
    }

    // Its lines with the source line blanked: "(SettingHelper:*)[~~~~vistane~~~~]cannot ...".
    std::vector<std::string> lines() const
    {
        std::vector<std::string> lines;
        std::istringstream stream(text());
        for (std::string line; std::getline(stream, line);)
            lines.push_back(std::regex_replace(line, std::regex("^(\\([^:]*):[0-9]+\\)"), "$1:*)"));
        return lines;
    }

private:
    char* mText = nullptr; // what the file holds, which lives in memory
    size_t mSize = 0;
    FILE* const mFile = open_memstream(&mText, &mSize);
    FILE* const mPrevious = libaplog_to_module_ptr;
};
