#pragma once

#include <fstream>
#include <sstream>
#include <string>

// All that is in a file; nothing when there is none.
inline std::string contentOf(const std::string& path)
{
    std::ostringstream content;
    content << std::ifstream(path, std::ios::binary).rdbuf();
    return content.str();
}
