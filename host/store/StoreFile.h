#pragma once

#include "Sqlite.h"

#include <string>

// Opening the store's file, whatever state it is in.
namespace StoreFile {

// Opens the store at `path`, with its tables, in `connection`. A missing file is made (0600, its folders 0700)
// from the built-in pack. One that can't be used (damaged, of a newer schema, no database, not readable) is
// renamed to a free name beside it, never changed, and a new one takes its place; one log line says so. A file
// or folder that can't be written is opened for reading: the store is read as it stood, and what another
// program writes later isn't seen.
//
// When nothing of this works, or the path names something that is no file, the store is made in memory, from
// the built-in pack and read-only, one log line says why, and the answer is false.
bool open(const std::string& path, Sqlite::Connection& connection);

} // namespace StoreFile
