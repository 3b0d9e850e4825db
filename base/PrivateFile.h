#pragma once

#include <string>
#include <string_view>

// A file of the user's own in a folder where everybody may write. One that somebody else owns or planted there,
// a symbolic or hard link to another file, a pipe or a folder, is neither read nor written nor removed.
namespace PrivateFile {

// Makes `text` the whole content of the file, which only the user may read from then on. False when that could
// not be done.
bool write(const char* path, std::string_view text);

// Removes the file.
void remove(const char* path);

// The file's content; empty when there is none to be had.
std::string read(const char* path);

} // namespace PrivateFile
