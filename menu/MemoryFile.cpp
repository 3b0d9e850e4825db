#include "MemoryFile.h"

#include "ListText.h"
#include "PrivateFile.h"
#include "StatusValues.h"

#include <algorithm>

namespace MemoryFile {

void load(const char* path, StatusValues::State& state)
{
    const std::string lines = PrivateFile::read(path);
    size_t begin = 0;
    for (std::string* text : {&state.totalMemoryText, &state.freeMemoryText, &state.usedMemoryText}) {
        if (begin >= lines.size())
            return;
        const size_t end = std::min(lines.find('\n', begin), lines.size());
        *text = lines.substr(begin, end - begin);
        begin = end + 1;
    }
}

void save(const char* path, const StatusValues::State& state)
{
    std::string lines;
    for (const std::string& text : {state.totalMemoryText, state.freeMemoryText, state.usedMemoryText})
        lines += ListText::oneLine(text) + '\n'; // or the next run takes its rest for the next text
    PrivateFile::write(path, lines);
}

} // namespace MemoryFile
