#include "LogCapture.h"

#include "aplog.h"

#include <regex>
#include <sstream>

LogCapture::LogCapture() : mFile(std::tmpfile()), mPrevious(libaplog_to_module_ptr)
{
    libaplog_to_module_ptr = mFile;
}

LogCapture::~LogCapture()
{
    libaplog_to_module_ptr = mPrevious;
    std::fclose(mFile);
}

std::string LogCapture::text() const
{
    std::fflush(mFile);
    const long end = std::ftell(mFile);
    std::string text(static_cast<size_t>(end), '\0');
    std::rewind(mFile);
    const size_t read = std::fread(text.data(), 1, text.size(), mFile);
    std::fseek(mFile, 0, SEEK_END);
    text.resize(read);
    return text;
}

std::vector<std::string> LogCapture::lines() const
{
    static const std::regex sourceLine("^(\\([^:]*):[0-9]+\\)");
    std::vector<std::string> lines;
    std::istringstream stream(text());
    for (std::string line; std::getline(stream, line);)
        lines.push_back(std::regex_replace(line, sourceLine, "$1:*)"));
    return lines;
}
