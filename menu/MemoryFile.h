#pragma once

namespace StatusValues {
struct State;
}

// The file that carries the memory texts of the details page from one run to the next: three lines, the total,
// free and used memory as they are shown. It is a PrivateFile. Whatever fails is not reported.
//
// The ApiProvider saves it when it is torn down, at the end of the process; nothing saves it while the program runs.
namespace MemoryFile {

inline constexpr char defaultPath[] = "/tmp/vtmem";

// Reads the texts into `state`. A line that is not there leaves its text alone.
void load(const char* path, StatusValues::State& state);

// Writes the texts of `state`.
void save(const char* path, const StatusValues::State& state);

} // namespace MemoryFile
