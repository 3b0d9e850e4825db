#include "StoreFile.h"

#include "Log.h"
#include "StoreSchema.h"
#include "Text.h"

#include <QByteArray>
#include <QUrl>

#include <sqlite3.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

const Log logger("VistaneStore");

// Milliseconds that programs which start at the same moment wait for each other, not to set aside each other's new
// file. Somebody else's lock is then done without.
constexpr int startPatience = 500;

// SQLite's files beside the store's own; the first two can hold what the store itself does not yet.
constexpr const char* logs[] = {"-wal", "-journal"};
constexpr const char* companions[] = {"-wal", "-journal", "-shm"};

// What came of an attempt to open the file; `reason` completes a sentence that begins with its path.
struct Attempt
{
    enum Result { Usable, Unusable, Refused } result;
    std::string reason;
};

const Attempt usable = {Attempt::Usable, {}};
const Attempt noStore = {Attempt::Unusable, "is no database of ours"};
const Attempt damaged = {Attempt::Unusable, "is damaged"};

Attempt attemptOf(Sqlite::Result result)
{
    if (result.isOk())
        return usable;
    switch (result.primary()) {
    case SQLITE_NOTADB:
        return noStore;
    case SQLITE_CORRUPT:
        return damaged;
    default:
        return {Attempt::Refused, std::string("cannot be used (") + result.text() + ")"};
    }
}

Attempt refusal(int error)
{
    return {Attempt::Refused, std::string("cannot be used (") + std::strerror(error) + ")"};
}

bool makeFolders(const std::filesystem::path& folder)
{
    if (folder.empty() || ::mkdir(folder.c_str(), 0700) == 0 || errno == EEXIST)
        return true;
    // Another program that starts at the same moment may be the one that makes it.
    return errno == ENOENT && makeFolders(folder.parent_path()) &&
           (::mkdir(folder.c_str(), 0700) == 0 || errno == EEXIST);
}

void lock(int file)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(startPatience);
    while (::flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK &&
           std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
}

bool isAt(const std::string& path, int file)
{
    struct stat named = {}, open = {};
    return ::stat(path.c_str(), &named) == 0 && ::fstat(file, &open) == 0 && named.st_dev == open.st_dev &&
           named.st_ino == open.st_ino;
}

// Opens the file, or makes it, and locks it against other starts. SQLite would make it with wider rights.
Attempt openFile(const std::string& path, int& file)
{
    for (;;) {
        file = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
        if (file < 0 && errno == ENOENT)
            file = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
        if (file < 0)
            return errno == EACCES ? Attempt{Attempt::Unusable, "cannot be read"} : refusal(errno);
        struct stat status = {};
        if (::fstat(file, &status) != 0)
            return refusal(errno);
        // A folder or a device that somebody named by mistake is not ours to move.
        if (!S_ISREG(status.st_mode))
            return {Attempt::Refused, "is not a file"};
        lock(file);
        if (isAt(path, file))
            return usable;
        ::close(file); // another program has set it aside
    }
}

// Whether another program left something in the write-ahead log or the older journal.
bool hasLogs(const std::string& path)
{
    return std::any_of(std::begin(logs), std::end(logs), [&path](const char* log) {
        struct stat status = {};
        return ::stat((path + log).c_str(), &status) == 0 && status.st_size > 0;
    });
}

// Looks at what SQLite would not say, or would "repair": to it, a cut file is a smaller one, and an empty file a new
// store whose old log can go.
Attempt lookAt(const std::string& path, int file)
{
    constexpr char magic[] = "SQLite format 3";
    constexpr size_t sizeAt = 16; // two bytes of the header, the greater first; 1 stands for 65536
    unsigned char header[100];
    struct stat status = {};
    if (::fstat(file, &status) != 0)
        return refusal(errno);
    if (status.st_size == 0)
        return hasLogs(path) ? Attempt{Attempt::Unusable, "is empty beside its log"} : usable;
    if (::pread(file, header, sizeof header, 0) != sizeof header ||
        std::memcmp(header, magic, sizeof magic) != 0)
        return noStore;
    const int pageSize = header[sizeAt] << 8 | header[sizeAt + 1];
    return status.st_size % (pageSize > 1 ? pageSize : 65536) == 0 ? usable : damaged;
}

Sqlite::Result connect(Sqlite::Connection& connection, const std::string& file, int flags, int patience,
                       StoreSchema::Found& found)
{
    const Sqlite::Result result = connection.open(file, flags);
    if (!result.isOk())
        return result;
    connection.setPatience(patience);
    const Sqlite::Result synchronous = connection.execute("PRAGMA synchronous = FULL");
    return synchronous.isOk() ? StoreSchema::classify(connection, found) : synchronous;
}

// Without the right to write beside it, not even the file's own shared memory can be set up. Read as it stands,
// the file is whole only when no write waits beside it.
Sqlite::Result connectUnwritable(Sqlite::Connection& connection, const std::string& path, int patience,
                                 StoreSchema::Found& found)
{
    const QUrl link = QUrl::fromLocalFile(QString::fromStdString(path));
    return connect(connection, link.toEncoded().toStdString() + "?immutable=1",
                   SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, patience, found);
}

Attempt checkContent(Sqlite::Connection& connection)
{
    Sqlite::Query query(connection, "PRAGMA quick_check(1)");
    Sqlite::Run run = query.run();
    const Sqlite::Result result = run.step();
    if (!result.isRow())
        return attemptOf(result);
    return run.text(0) == "ok" ? usable : damaged;
}

Attempt fillOrCheck(Sqlite::Connection& connection, const StoreSchema::Found& found)
{
    switch (found.kind) {
    case StoreSchema::Found::Ours:
        return checkContent(connection);
    case StoreSchema::Found::Older:
        if (const Attempt attempt = checkContent(connection); attempt.result != Attempt::Usable)
            return attempt;
        return attemptOf(StoreSchema::bringUpToDate(connection));
    case StoreSchema::Found::Newer:
        return {Attempt::Unusable, "has the newer schema " + std::to_string(found.version)};
    case StoreSchema::Found::Foreign:
        return noStore;
    case StoreSchema::Found::Unused:
        break;
    }
    // The mode stays with the file. Where it can't be had, the older journal is as safe, only slower.
    (void)connection.execute("PRAGMA journal_mode = WAL");
    return attemptOf(StoreSchema::create(connection, OperatorPack::builtIn()));
}

Attempt openStore(const std::string& path, Sqlite::Connection& connection, int patience)
{
    StoreSchema::Found found;
    Sqlite::Result result = connect(connection, path, SQLITE_OPEN_READWRITE, patience, found);
    if (attemptOf(result).result == Attempt::Refused && result.primary() != SQLITE_BUSY && !hasLogs(path))
        result = connectUnwritable(connection, path, patience, found);
    return result.isOk() ? fillOrCheck(connection, found) : attemptOf(result);
}

bool exists(const std::string& path)
{
    struct stat status = {};
    return ::lstat(path.c_str(), &status) == 0;
}

std::string freeName(const std::string& path)
{
    std::string name;
    for (int number = 1; name.empty() || exists(name) || exists(name + logs[0]); ++number)
        name = path + ".set-aside-" + std::to_string(number);
    return name;
}

void setCompanionsAside(const std::string& path, const std::string& name)
{
    for (const char* companion : companions)
        ::rename((path + companion).c_str(), (name + companion).c_str());
}

// Renames the file together with SQLite's companions of it, which would spoil the new one. Returns the new
// name, empty when the folder refuses.
std::string setAside(const std::string& path)
{
    const std::string name = freeName(path);
    if (::rename(path.c_str(), name.c_str()) != 0)
        return {};
    setCompanionsAside(path, name);
    return name;
}

// 0 when there is no file.
uint64_t inodeOf(const std::string& path)
{
    struct stat status = {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_ino : 0;
}

} // namespace

StoreFile::~StoreFile()
{
    if (mFile >= 0)
        ::close(mFile);
}

std::string StoreFile::open(const std::string& path, Sqlite::Connection& connection, int patience)
{
    mPath = path;
    std::string reason;
    const bool onDisk = openOnDisk(connection, patience, reason);
    if (mFile >= 0)
        ::flock(mFile, LOCK_UN);
    noteLog();
    if (onDisk)
        return {};
    (void)connection.open(":memory:", SQLITE_OPEN_READWRITE);
    (void)StoreSchema::create(connection, OperatorPack::builtIn());
    (void)connection.execute("PRAGMA query_only = ON");
    return reason;
}

bool StoreFile::openOnDisk(Sqlite::Connection& connection, int patience, std::string& reason)
{
    if (!makeFolders(std::filesystem::path(mPath).parent_path())) {
        reason = refusal(errno).reason;
        return false;
    }
    for (bool isFirst = true;; isFirst = false) {
        Attempt attempt = openFile(mPath, mFile);
        if (attempt.result == Attempt::Usable)
            attempt = lookAt(mPath, mFile);
        if (attempt.result == Attempt::Usable)
            attempt = openStore(mPath, connection, patience);
        reason = attempt.reason;
        if (attempt.result != Attempt::Unusable || !isFirst)
            return attempt.result == Attempt::Usable;
        connection.closeUntouched();
        const std::string name = setAside(mPath);
        if (name.empty())
            return false;
        logger(3, "%s %s: kept as %s, starting anew from the built-in pack",
               Text::withoutControls(mPath).c_str(), reason.c_str(), Text::withoutControls(name).c_str());
        ::close(std::exchange(mFile, -1));
    }
}

bool StoreFile::isReplaced(Sqlite::Connection& connection) const
{
    if (mFile < 0 || isAt(mPath, mFile))
        return false;
    connection.closeUntouched();
    if (mLog != 0 && inodeOf(mPath + logs[0]) == mLog)
        setCompanionsAside(mPath, freeName(mPath));
    logger(3, "%s was replaced: using the new one", Text::withoutControls(mPath).c_str());
    return true;
}

void StoreFile::noteLog()
{
    mLog = inodeOf(mPath + logs[0]);
}
