#include "CoreStore.h"
#include "FileContent.h"
#include "LogCapture.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <climits>
#include <filesystem>
#include <map>

namespace {

namespace fs = std::filesystem;

// A disk under SQLite that keeps for good only what was synchronized. Of the writes and synchronizations, the one that
// `left` counts down to fails with `error`, and all that follow it when that is `forEver`.
struct Disk
{
    Disk()
    {
        vfs = *real;
        vfs.zName = "losing power";
        vfs.xOpen = open;
        durable.clear();
        left = INT_MAX;
        sqlite3_vfs_register(&vfs, 1);
    }
    ~Disk()
    {
        sqlite3_vfs_unregister(&vfs);
        sqlite3_vfs_register(real, 1);
    }

    // What was not synchronized is lost, or a half of it. What was removed is removed for good.
    static void losePower(bool half)
    {
        for (auto& [path, kept] : durable) {
            const std::string current = contentOf(path);
            if (half && current.size() > kept.size())
                kept += current.substr(kept.size(), (current.size() - kept.size()) / 2);
            if (fs::exists(path))
                std::ofstream(path, std::ios::binary) << kept;
        }
    }

    static int open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags)
    {
        const int result = real->xOpen(real, name, file, flags, outFlags);
        if (result != SQLITE_OK || !name)
            return result;
        realMethods = *file->pMethods;
        sqlite3_io_methods& ours = methods[file->pMethods]; // files with locks and without have their own
        ours = realMethods;
        ours.xWrite = [](sqlite3_file* f, const void* data, int size, sqlite3_int64 at) {
            return failure() ? error : realMethods.xWrite(f, data, size, at);
        };
        ours.xSync = [](sqlite3_file* f, int how) {
            if (failure())
                return error;
            durable[names[f]] = contentOf(names[f]);
            return realMethods.xSync(f, how);
        };
        file->pMethods = &ours;
        names[file] = name;
        durable.try_emplace(name, contentOf(name));
        return result;
    }

    static bool failure() { return --left == 0 || (left < 0 && forEver); }

    static inline sqlite3_vfs* const real = sqlite3_vfs_find(nullptr);
    static inline sqlite3_vfs vfs;
    static inline std::map<const sqlite3_io_methods*, sqlite3_io_methods> methods;
    static inline sqlite3_io_methods realMethods;
    static inline std::map<sqlite3_file*, std::string> names;
    static inline std::map<std::string, std::string> durable;
    static inline int left, error;
    static inline bool forEver;
};

constexpr int menu = 5;
constexpr int writes = 8;

bool isPack(int number)
{
    return number % 4 == 3;
}

// Writes one value after the other, and a pack now and then. Returns the numbers of those that were acknowledged.
std::vector<int> writeAll(CoreStore& store)
{
    std::vector<int> acknowledged;
    for (int number = 0; number < writes; ++number) {
        const std::string text(3000, static_cast<char>('a' + number));
        const OperatorPack pack = {{{menu, "first", text}, {menu, "last", text}}, {{{text, text, true}}}};
        if ((isPack(number) ? store.installPack(pack) : store.write(menu, std::to_string(number), number)) ==
            STORE_OK)
            acknowledged.push_back(number);
    }
    return acknowledged;
}

void expectWritten(CoreStore& store, const std::vector<int>& acknowledged)
{
    EXPECT_TRUE(store.isOnDisk());
    SettingValue value;
    for (int number : acknowledged)
        EXPECT_TRUE(isPack(number) || (store.read(menu, std::to_string(number), value) == STORE_OK &&
                                       value == SettingValue(number)))
            << number;
    OperatorPack pack;
    ASSERT_EQ(store.exportPack(pack), STORE_OK);
    if (pack.settings.size() != 2)
        return; // the built-in one
    EXPECT_EQ(pack.settings[0].value, pack.settings[1].value);
    EXPECT_EQ(SettingValue(pack.profiles->at(0).id), pack.settings[0].value);
}

// Whatever fails, and from then on everything or it alone: what was acknowledged is there, and a pack is whole.
void failEverywhere(int error, bool forEver)
{
    Disk::error = error;
    Disk::forEver = forEver;
    int n = 1;
    for (bool hasFailed = true; hasFailed && !testing::Test::HasFailure(); ++n) {
        SCOPED_TRACE(n);
        const QTemporaryDir dir;
        const std::string path = dir.filePath("core.db").toStdString();
        const LogCapture log;
        std::vector<int> acknowledged;
        {
            const Disk disk;
            CoreStore store(path);
            Disk::left = n;
            acknowledged = writeAll(store);
            hasFailed = Disk::left <= 0;
            if (!forEver)
                expectWritten(store, acknowledged);
        }
        if (forEver) {
            Disk::losePower(n % 2);
            fs::remove(path + "-shm"); // it was memory
        } else {
            EXPECT_GE(acknowledged.size(), size_t(writes - 1));
        }
        CoreStore store(path);
        expectWritten(store, acknowledged);
        EXPECT_EQ(store.write(menu, "again", 1), STORE_OK);
    }
    EXPECT_GT(n, 2 * writes) << "each is written and synchronized";
}

} // namespace

TEST(PowerLoss, NoAcknowledgedWriteIsLost)
{
    failEverywhere(SQLITE_IOERR_WRITE, true);
}

TEST(PowerLoss, AFullDiskRefusesAndNothingElse)
{
    failEverywhere(SQLITE_FULL, false);
}
