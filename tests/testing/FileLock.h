#pragma once

#include <cstdio>
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

// Moves such a file of the user's out of the way while it lives, and back over whatever is there in the end. What a
// test that was killed left aside, the next one moves back.
class KeptFile : FileLock
{
public:
    explicit KeptFile(const char* path) : FileLock(path), mPath(path), mAside(std::string(path) + ".test-kept")
    {
        if (access(mAside.c_str(), F_OK) == 0)
            std::remove(path);
        else
            std::rename(path, mAside.c_str());
    }
    ~KeptFile()
    {
        std::remove(mPath);
        std::rename(mAside.c_str(), mPath);
    }

private:
    const char* const mPath;
    const std::string mAside;
};
