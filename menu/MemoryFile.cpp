#include "MemoryFile.h"

#include "StatusValues.h"

#include <cstdio>
#include <memory>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

struct Close
{
    void operator()(FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<FILE, Close>;

bool isOurs(int descriptor)
{
    struct stat status;
    return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == geteuid() &&
           status.st_nlink == 1;
}

// Opens the file, or gives null. O_NONBLOCK: a pipe in its place must not hold the program up.
File open(const char* path, int flags, const char* mode)
{
    const int descriptor = ::open(path, flags | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0600);
    if (descriptor < 0)
        return nullptr;
    File file(isOurs(descriptor) ? fdopen(descriptor, mode) : nullptr);
    if (!file)
        ::close(descriptor);
    return file;
}

bool readLine(FILE* file, std::string& line)
{
    std::string read;
    int c;
    while ((c = std::fgetc(file)) != EOF && c != '\n')
        read += static_cast<char>(c);
    if (c == EOF && read.empty())
        return false;
    line = read;
    return true;
}

} // namespace

namespace MemoryFile {

void load(const char* path, StatusValues::State& state)
{
    if (const File file = open(path, O_RDONLY, "r")) {
        for (std::string* text : {&state.totalMemoryText, &state.freeMemoryText, &state.usedMemoryText}) {
            if (!readLine(file.get(), *text))
                return;
        }
    }
}

void save(const char* path, const StatusValues::State& state)
{
    // Truncated only once it is known to be ours.
    const File file = open(path, O_WRONLY | O_CREAT, "w");
    if (!file || ftruncate(fileno(file.get()), 0) != 0)
        return;
    for (const std::string* text : {&state.totalMemoryText, &state.freeMemoryText, &state.usedMemoryText}) {
        std::fwrite(text->data(), 1, text->size(), file.get());
        std::fputc('\n', file.get());
    }
}

} // namespace MemoryFile
