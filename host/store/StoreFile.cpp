#include "StoreFile.h"

#include "FolderLock.h"
#include "Log.h"
#include "StoreSchema.h"

#include <QByteArray>
#include <QUrl>

#include <sqlite3.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const Log logger("VistaneStore");

// How long a write waits for another process's.
constexpr int busyTimeoutMs = 2000;

// What came of an attempt to open the file; `reason` completes a sentence that begins with its path.
struct Attempt
{
    enum Result { Usable, Unusable, Refused } result;
    std::string reason;
};

const Attempt usable = {Attempt::Usable, {}};

Attempt attemptOf(int result)
{
    switch (result & 0xff) {
    case SQLITE_OK:
        return usable;
    case SQLITE_NOTADB:
        return {Attempt::Unusable, "is no database of ours"};
    case SQLITE_CORRUPT:
        return {Attempt::Unusable, "is damaged"};
    default:
        return {Attempt::Refused, std::string("cannot be used (") + sqlite3_errstr(result) + ")"};
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

// SQLite would make the file with wider rights.
Attempt makeFile(const std::string& path)
{
    const int file = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (file < 0)
        return refusal(errno);
    ::close(file);
    return usable;
}

Attempt checkFile(const std::string& path)
{
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0)
        return errno == ENOENT ? makeFile(path) : refusal(errno);
    // A folder or a device that somebody named by mistake is not ours to move.
    if (!S_ISREG(status.st_mode))
        return {Attempt::Refused, "is not a file"};
    if (::faccessat(AT_FDCWD, path.c_str(), R_OK, AT_EACCESS) != 0)
        return {Attempt::Unusable, "cannot be read"};
    return usable;
}

int connect(Sqlite::Connection& connection, const std::string& file, int flags, int& version)
{
    int result = connection.open(file, flags);
    if (result == SQLITE_OK)
        result = sqlite3_busy_timeout(connection.handle(), busyTimeoutMs);
    if (result == SQLITE_OK)
        result = connection.execute("PRAGMA synchronous = FULL");
    if (result == SQLITE_OK)
        result = StoreSchema::readVersion(connection, version);
    return result;
}

// Whether another program left something in the write-ahead log or the older journal.
bool hasWaitingWrites(const std::string& path)
{
    constexpr const char* companions[] = {"-wal", "-journal"};
    return std::any_of(std::begin(companions), std::end(companions), [&path](const char* companion) {
        struct stat status = {};
        return ::stat((path + companion).c_str(), &status) == 0 && status.st_size > 0;
    });
}

// Without the right to write beside it, not even the file's own shared memory can be set up. Read as it stands,
// the file is whole only when no write waits beside it.
int connectUnwritable(Sqlite::Connection& connection, const std::string& path, int& version)
{
    const QUrl link = QUrl::fromLocalFile(QString::fromStdString(path));
    return connect(connection, link.toEncoded().toStdString() + "?immutable=1",
                   SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, version);
}

Attempt checkContent(Sqlite::Connection& connection)
{
    Sqlite::Statement statement;
    if (const int result = statement.prepare(connection, "PRAGMA quick_check(1)"); result != SQLITE_OK)
        return attemptOf(result);
    Sqlite::Statement::Run run(statement);
    if (const int result = run.step(); result != SQLITE_ROW)
        return attemptOf(result);
    if (run.text(0) != "ok")
        return attemptOf(SQLITE_CORRUPT);
    const int result = StoreSchema::checkTables(connection);
    return result == SQLITE_ERROR ? attemptOf(SQLITE_NOTADB) : attemptOf(result);
}

Attempt fillOrCheck(Sqlite::Connection& connection, int version)
{
    if (version == StoreSchema::version)
        return checkContent(connection);
    if (version > StoreSchema::version)
        return {Attempt::Unusable, "has the newer schema " + std::to_string(version)};
    bool empty = false;
    if (const int result = StoreSchema::readEmptiness(connection, empty); result != SQLITE_OK)
        return attemptOf(result);
    if (version != 0 || !empty)
        return attemptOf(SQLITE_NOTADB);
    // The mode stays with the file. Where it can't be had, the older journal is as safe, only slower.
    connection.execute("PRAGMA journal_mode = WAL");
    return attemptOf(StoreSchema::create(connection, OperatorPack::builtIn()));
}

Attempt openFile(const std::string& path, Sqlite::Connection& connection)
{
    if (Attempt attempt = checkFile(path); attempt.result != Attempt::Usable)
        return attempt;
    int version = 0;
    int result = connect(connection, path, SQLITE_OPEN_READWRITE, version);
    if (attemptOf(result).result == Attempt::Refused && (result & 0xff) != SQLITE_BUSY &&
        !hasWaitingWrites(path))
        result = connectUnwritable(connection, path, version);
    if (result != SQLITE_OK)
        return attemptOf(result);
    return fillOrCheck(connection, version);
}

bool exists(const std::string& path)
{
    struct stat status = {};
    return ::lstat(path.c_str(), &status) == 0;
}

// Renames the file together with SQLite's companions of it, which would spoil the new one. Returns the new
// name, empty when the folder refuses.
std::string setAside(const std::string& path)
{
    constexpr const char* companions[] = {"-wal", "-shm", "-journal"};
    std::string name;
    for (int number = 1; name.empty() || exists(name); ++number)
        name = path + ".set-aside-" + std::to_string(number);
    if (::rename(path.c_str(), name.c_str()) != 0)
        return {};
    for (const char* companion : companions)
        ::rename((path + companion).c_str(), (name + companion).c_str());
    return name;
}

bool openOnDisk(const std::string& path, Sqlite::Connection& connection, std::string& reason)
{
    const std::filesystem::path folder = std::filesystem::path(path).parent_path();
    if (!makeFolders(folder)) {
        reason = refusal(errno).reason;
        return false;
    }
    // Two programs that start at the same moment must not set aside each other's new file.
    const FolderLock lock(folder);
    Attempt attempt = openFile(path, connection);
    if (attempt.result == Attempt::Unusable) {
        connection.closeUntouched();
        const std::string name = setAside(path);
        if (!name.empty()) {
            logger(3, "%s %s: kept as %s, starting anew from the built-in pack", path.c_str(),
                   attempt.reason.c_str(), name.c_str());
            attempt = openFile(path, connection);
        }
    }
    reason = attempt.reason;
    return attempt.result == Attempt::Usable;
}

} // namespace

namespace StoreFile {

bool open(const std::string& path, Sqlite::Connection& connection)
{
    std::string reason;
    if (openOnDisk(path, connection, reason))
        return true;
    logger(3, "%s %s: using the built-in pack, and no change will be saved", path.c_str(), reason.c_str());
    connection.open(":memory:", SQLITE_OPEN_READWRITE);
    StoreSchema::create(connection, OperatorPack::builtIn());
    connection.execute("PRAGMA query_only = ON");
    return false;
}

} // namespace StoreFile
