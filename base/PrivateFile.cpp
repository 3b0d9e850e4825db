#include "PrivateFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool isOwn(const struct stat& status)
{
    return S_ISREG(status.st_mode) && status.st_uid == geteuid() && status.st_nlink == 1;
}

// The descriptor of a file that is the user's own, or -1. Nothing has been done to the file yet: whether it is
// one of ours is only known once it is open. O_NONBLOCK keeps a pipe from holding us up.
int openOwn(const char* path, int flags)
{
    const int file = open(path, flags | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0600);
    struct stat status;
    if (file < 0)
        return -1;
    if (fstat(file, &status) == 0 && isOwn(status))
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

} // namespace

namespace PrivateFile {

bool write(const char* path, std::string_view text)
{
    const int file = openOwn(path, O_WRONLY | O_CREAT);
    if (file < 0)
        return false;
    const bool done = fchmod(file, 0600) == 0 && ftruncate(file, 0) == 0 && writeAll(file, text);
    return close(file) == 0 && done;
}

void remove(const char* path)
{
    struct stat status;
    if (lstat(path, &status) == 0 && isOwn(status))
        unlink(path);
}

std::string read(const char* path)
{
    const int file = openOwn(path, O_RDONLY);
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
