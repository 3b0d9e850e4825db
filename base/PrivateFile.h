#pragma once

#include <string>
#include <string_view>

// A file of the user's own in a folder where everybody may write. One that somebody else owns, and what he planted there,
// a symbolic link, a pipe or a folder, is neither read nor written nor removed. A second name of a file of the user's own
// is not read, but may be replaced or removed: that file keeps its other name and its text.
namespace PrivateFile {

// Makes `text` the whole content of the file, which only the user may read from then on. False when that could
// not be done.
bool write(const char* path, std::string_view text);

// Removes the file.
void remove(const char* path);

// The file's content; empty when there is none to be had.
std::string read(const char* path);

} // namespace PrivateFile
