#include "FolderLock.h"

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr auto patience = std::chrono::seconds(3);
constexpr auto retryAfter = std::chrono::milliseconds(5);

} // namespace

FolderLock::FolderLock(const std::filesystem::path& folder)
    : mFolder(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    const auto end = std::chrono::steady_clock::now() + patience;
    while (mFolder >= 0 && ::flock(mFolder, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK &&
           std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(retryAfter);
}

FolderLock::~FolderLock()
{
    if (mFolder >= 0)
        ::close(mFolder);
}
