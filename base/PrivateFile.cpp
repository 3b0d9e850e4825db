#include "PrivateFile.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool isOwn(const struct stat& status)
{
    return S_ISREG(status.st_mode) && status.st_uid == geteuid();
}

// The descriptor of a file that is the user's own, open for reading, or -1. Whether it is one of ours is only known once
// it is open; one with a second name may be any of his files, linked here by somebody else. O_NONBLOCK keeps a pipe from
// holding us up.
int openOwn(const char* path)
{
    const int file = open(path, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    struct stat status;
    if (file < 0)
        return -1;
    if (fstat(file, &status) == 0 && isOwn(status) && status.st_nlink == 1)
        return file;
    close(file);
    return -1;
}

bool writeAll(int file, std::string_view text)
{
    while (!text.empty()) {
        const ssize_t written = ::write(file, text.data(), text.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        text.remove_prefix(static_cast<size_t>(written));
    }
    return true;
}

// Whether nothing has the name, or a file of the user's own. One with a second name loses only this one.
bool mayReplace(const char* path)
{
    struct stat status;
    return lstat(path, &status) == 0 ? isOwn(status) : errno == ENOENT;
}

} // namespace

namespace PrivateFile {

// A new file is renamed over the name. Whatever somebody else puts there in between loses its name at worst; to open
// what is there and look afterwards would leave time to swap it for a link to a file of his choice.
bool write(const char* path, std::string_view text)
{
    std::string name = std::string(path) + ".XXXXXX";
    const int file = mayReplace(path) ? mkostemp(name.data(), O_CLOEXEC) : -1;
    if (file < 0)
        return false;
    const bool written = writeAll(file, text);
    if (close(file) == 0 && written && rename(name.c_str(), path) == 0)
        return true;
    unlink(name.c_str());
    return false;
}

void remove(const char* path)
{
    struct stat status;
    if (lstat(path, &status) == 0 && isOwn(status))
        unlink(path);
}

std::string read(const char* path)
{
    const int file = openOwn(path);
    if (file < 0)
        return {};
    std::string text;
    char block[4096];
    for (;;) {
        const ssize_t count = ::read(file, block, sizeof block);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            break;
        text.append(block, static_cast<size_t>(count));
    }
    close(file);
    return text;
}

} // namespace PrivateFile
