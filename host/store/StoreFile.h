#pragma once

#include "Sqlite.h"

#include <string>

// The store's file on the disk, whatever state it is in. It has to outlive the connection that it opened: closing a file
// takes away the locks that SQLite has on it.
class StoreFile
{
public:
    StoreFile() = default;
    ~StoreFile();
    StoreFile(const StoreFile&) = delete;
    StoreFile& operator=(const StoreFile&) = delete;

    // Opens the store at `path`, with its tables, in `connection`; to be called once. A missing or empty file is made
    // (0600, its folders 0700) from the built-in pack. One that is no whole store of ours (damaged, cut, of a newer
    // schema, with another's tables, no database, not readable, empty beside a log) is renamed to a free name beside
    // it together with its log files, never changed, and a new one takes its place; one log line says so. A file or
    // folder that can't be written is opened for reading: the store is read as it stood, and what another program
    // writes later isn't seen.
    //
    // When nothing of this works, or the path names something that is no file, the store is made in memory, from
    // the built-in pack and read-only; what comes back says why, to complete a sentence that begins with the path, and
    // is empty otherwise. `patience` is how many milliseconds to wait for another program's lock.
    std::string open(const std::string& path, Sqlite::Connection& connection, int patience);

    // Whether another file, or none, is at the path by now; what is written to this one would be lost. The log of this
    // one, which would be taken for the other's, is then set aside, and the connection closed.
    bool isReplaced(Sqlite::Connection& connection) const;
    // To be called after each write, by which the log comes into being.
    void noteLog();

private:
    bool openOnDisk(Sqlite::Connection& connection, int patience, std::string& reason);

    std::string mPath;
    int mFile = -1;    // open for as long as the store is
    uint64_t mLog = 0; // the inode of its log
};
