#pragma once

#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <unistd.h>

// Keeps other tests, of this run and of any other, off a file that has one name for the whole machine.
class FileLock
{
public:
    explicit FileLock(const char* path)
        : mFile(open((std::string(path) + ".test-lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666))
    {
        flock(mFile, LOCK_EX);
    }
    ~FileLock() { close(mFile); }
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

private:
    int mFile;
};
