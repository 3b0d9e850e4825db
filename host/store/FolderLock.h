#pragma once

#include <filesystem>

// A lock on a folder that only programs which ask for it respect; released with this object, and by the
// kernel when the program dies. It leaves no file behind.
class FolderLock
{
public:
    // Waits a few seconds at most: a lock that can't be had is done without, rather than hang a start on
    // somebody else's stopped program.
    explicit FolderLock(const std::filesystem::path& folder);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

private:
    int mFolder;
};
