#pragma once

namespace StatusValues {
struct State;
}

// The file that carries the memory texts of the details page from one run to the next: three lines, the total,
// free and used memory as they are shown.
//
// It stands where everybody can write, so only a regular file of this user's own, with no other name, is read or
// written: never one behind a symbolic link. Whatever fails is not reported.
namespace MemoryFile {

inline constexpr char path[] = "/tmp/vtmem";

// Reads the texts into `state`. A line that is not there leaves its text alone.
void load(const char* path, StatusValues::State& state);

// Writes the texts of `state`, creating the file (0600) when there is none.
void save(const char* path, const StatusValues::State& state);

} // namespace MemoryFile
