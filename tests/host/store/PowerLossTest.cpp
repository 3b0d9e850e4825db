#include "CoreStore.h"
#include "LogCapture.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <climits>
#include <filesystem>
#include <fstream>
#include <map>

namespace {

namespace fs = std::filesystem;

std::string contentOf(const std::string& path)
{
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

// A disk under SQLite that keeps for good only what was synchronized, and that fails when its time has come.
class Disk
{
public:
    // The n-th write, truncation or synchronization from now on fails with `error`: once, or with all that follow it.
    static void failAt(int n, int error, bool forEver)
    {
        sLeft = n;
        sError = error;
        sForEver = forEver;
    }

    static bool hasFailed() { return sLeft < 0; }

    // The power goes: what was not synchronized is lost, or a half of it.
    static void losePower(bool half)
    {
        for (const auto& [path, durable] : sDurable) {
            if (!fs::exists(path))
                continue; // removing is for good, too
            const std::string current = contentOf(path);
            std::ofstream(path, std::ios::binary)
                << (half && current.size() > durable.size()
                        ? durable + current.substr(durable.size(), (current.size() - durable.size()) / 2)
                        : durable);
        }
    }

    Disk()
    {
        sVfs = *sReal;
        sVfs.zName = "losing power";
        sVfs.xOpen = open;
        sDurable.clear();
        failAt(INT_MAX, 0, false);
        sqlite3_vfs_register(&sVfs, 1);
    }
    ~Disk()
    {
        sqlite3_vfs_unregister(&sVfs);
        sqlite3_vfs_register(sReal, 1);
    }

private:
    static int open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags)
    {
        const int result = sReal->xOpen(sReal, name, file, flags, outFlags);
        if (result != SQLITE_OK || !name)
            return result;
        sRealMethods = *file->pMethods;
        sqlite3_io_methods& ours = sMethods[file->pMethods]; // files with locks and without have their own
        ours = sRealMethods;
        ours.xWrite = [](sqlite3_file* f, const void* data, int size, sqlite3_int64 at) {
            const int error = failure();
            return error ? error : sRealMethods.xWrite(f, data, size, at);
        };
        ours.xTruncate = [](sqlite3_file* f, sqlite3_int64 size) {
            const int error = failure();
            return error ? error : sRealMethods.xTruncate(f, size);
        };
        ours.xSync = [](sqlite3_file* f, int how) {
            if (const int error = failure())
                return error;
            sDurable[sNames[f]] = contentOf(sNames[f]);
            return sRealMethods.xSync(f, how);
        };
        file->pMethods = &ours;
        sNames[file] = name;
        sDurable.try_emplace(name, contentOf(name));
        return result;
    }

    static int failure()
    {
        if (sLeft < 0 && !sForEver)
            return SQLITE_OK;
        return --sLeft < 0 ? sError : SQLITE_OK;
    }

    static inline sqlite3_vfs* const sReal = sqlite3_vfs_find(nullptr);
    static inline sqlite3_vfs sVfs;
    static inline std::map<const sqlite3_io_methods*, sqlite3_io_methods> sMethods;
    static inline sqlite3_io_methods sRealMethods;
    static inline std::map<sqlite3_file*, std::string> sNames;
    static inline std::map<std::string, std::string> sDurable;
    static inline int sLeft, sError;
    static inline bool sForEver;
};

constexpr int menu = 5;
constexpr int writes = 12;

OperatorPack packOf(int number)
{
    const std::string text(3000, static_cast<char>('a' + number));
    return {{{menu, "first", text}, {menu, "last", text}}, {{{text, text, true}}}};
}

// Writes one value after the other, and a pack now and then. Returns the numbers of those that were acknowledged.
std::vector<int> writeAll(CoreStore& store)
{
    std::vector<int> acknowledged;
    for (int number = 0; number < writes; ++number) {
        const StoreStatus status = number % 4 == 3 ? store.installPack(packOf(number))
                                                   : store.write(menu, "n" + std::to_string(number), number);
        if (status == STORE_OK)
            acknowledged.push_back(number);
    }
    return acknowledged;
}

void expectWritten(CoreStore& store, const std::vector<int>& acknowledged)
{
    EXPECT_TRUE(store.isOnDisk());
    for (int number : acknowledged) {
        SettingValue value;
        if (number % 4 == 3)
            continue;
        EXPECT_EQ(store.read(menu, "n" + std::to_string(number), value), STORE_OK) << number;
        EXPECT_EQ(value, SettingValue(number));
    }
    OperatorPack pack;
    ASSERT_EQ(store.exportPack(pack), STORE_OK);
    if (pack.settings.size() != 2)
        return; // the built-in one
    EXPECT_EQ(pack.settings[0].value, pack.settings[1].value);
    EXPECT_EQ(SettingValue(pack.profiles->at(0).id), pack.settings[0].value);
}

// Lets the n-th operation fail, for every n there is, and looks afterwards. Returns how many there were.
template <typename Look>
int forEachFailure(int error, bool forEver, Look look)
{
    for (int n = 0;; ++n) {
        SCOPED_TRACE(n);
        const QTemporaryDir dir;
        const std::string path = dir.filePath("core.db").toStdString();
        const LogCapture log;
        std::vector<int> acknowledged;
        bool hasFailed = false;
        {
            const Disk disk;
            CoreStore store(path);
            Disk::failAt(n, error, forEver);
            acknowledged = writeAll(store);
            hasFailed = Disk::hasFailed();
            if (!forEver)
                expectWritten(store, acknowledged);
        }
        look(path, acknowledged, n);
        if (!hasFailed)
            return n;
        if (testing::Test::HasFailure())
            return 0;
    }
}

} // namespace

TEST(PowerLoss, NoAcknowledgedWriteIsLost)
{
    const int count = forEachFailure(SQLITE_IOERR_WRITE, true,
                                     [](const std::string& path, const std::vector<int>& acknowledged, int n) {
                                         Disk::losePower(n % 2);
                                         fs::remove(path + "-shm"); // it was memory
                                         CoreStore store(path);
                                         expectWritten(store, acknowledged);
                                         EXPECT_EQ(store.write(menu, "again", 1), STORE_OK);
                                     });
    EXPECT_GT(count, 2 * writes) << "each is written and synchronized";
}

TEST(PowerLoss, AFullDiskRefusesAndNothingElse)
{
    forEachFailure(SQLITE_FULL, false, [](const std::string& path, const std::vector<int>& acknowledged, int) {
        EXPECT_GE(acknowledged.size(), size_t(writes - 1));
        CoreStore store(path);
        expectWritten(store, acknowledged);
    });
}
