#include "MemoryFile.h"

#include "PrivateFile.h"
#include "StatusValues.h"

#include <sstream>

namespace MemoryFile {

void load(const char* path, StatusValues::State& state)
{
    std::istringstream lines(PrivateFile::read(path));
    for (std::string* text : {&state.totalMemoryText, &state.freeMemoryText, &state.usedMemoryText}) {
        std::string line;
        if (!std::getline(lines, line))
            return;
        *text = line;
    }
}

void save(const char* path, const StatusValues::State& state)
{
    PrivateFile::write(path, state.totalMemoryText + '\n' + state.freeMemoryText + '\n' + state.usedMemoryText +
                                 '\n');
}

} // namespace MemoryFile
