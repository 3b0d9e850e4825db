#include "CoreStore.h"
#include "LogCapture.h"
#include "Sqlite.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr int menu = 5;
constexpr const char* titleKey = "SetupHeadlines.title";

class StoreFileTest : public testing::Test
{
protected:
    std::string folder() const { return mDir.path().toStdString(); }
    std::string path() const { return folder() + "/core.db"; }

    bool isSetAside(int number) const { return fs::exists(path() + ".set-aside-" + std::to_string(number)); }

    void makeStore() const { ASSERT_EQ(CoreStore(path()).write(menu, "mine", 7), STORE_OK); }

    void sql(const char* statement) const
    {
        Sqlite::Connection connection;
        ASSERT_EQ(connection.open(path(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE), SQLITE_OK);
        ASSERT_EQ(connection.execute(statement), SQLITE_OK);
    }

    QTemporaryDir mDir;
};

std::string contentOf(const std::string& path)
{
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

bool startsFromThePack(CoreStore& store)
{
    SettingValue value;
    return store.read(menu, titleKey, value) == STORE_OK && store.read(menu, "mine", value) == STORE_NOT_FOUND;
}

} // namespace

TEST_F(StoreFileTest, TheFirstStartMakesAPrivateFile)
{
    const std::string deep = folder() + "/a/b/core.db";
    const mode_t mask = umask(0);
    {
        CoreStore store(deep);
        EXPECT_TRUE(store.isOnDisk() && startsFromThePack(store));
        EXPECT_EQ(store.write(menu, "mine", 7), STORE_OK);
        for (const char* name : {"", "-wal", "-shm"})
            EXPECT_EQ(fs::status(deep + name).permissions(), fs::perms(0600)) << name;
    }
    umask(mask);
    EXPECT_EQ(fs::status(folder() + "/a").permissions(), fs::perms(0700));
    EXPECT_EQ(fs::status(folder() + "/a/b").permissions(), fs::perms(0700));
    SettingValue value;
    EXPECT_EQ(CoreStore(deep).read(menu, "mine", value), STORE_OK);
}

TEST_F(StoreFileTest, AnInterruptedFirstStartIsMadeUpFor)
{
    std::ofstream(path()).close();
    CoreStore store(path());
    EXPECT_TRUE(startsFromThePack(store));
    EXPECT_FALSE(isSetAside(1));
}

TEST_F(StoreFileTest, AFileThatCannotBeUsedIsKeptUnderAnotherName)
{
    std::ofstream(path() + "-wal") << "its log";
    const std::function<void()> spoilers[] = {
        [&] { std::ofstream(path()) << "Dear diary, this is no database.\n"; },
        [&] { sql("CREATE TABLE diary(entry)"); }, // another program's
        [&] { sql("PRAGMA user_version = 99"); },  // newer
        [&] {
            makeStore(); // damaged
            std::fstream(path(), std::ios::in | std::ios::out).seekp(4096) << std::string(4096, '\xa5');
        },
        [&] {
            makeStore(); // cut short
            fs::resize_file(path(), fs::file_size(path()) - 4096);
        },
        [&] {
            makeStore(); // with a table missing
            sql("DROP TABLE profile");
        },
    };
    int count = 0;
    for (const auto& spoil : spoilers) {
        SCOPED_TRACE(++count);
        spoil();
        const std::string before = contentOf(path());
        const LogCapture log;
        {
            CoreStore store(path());
            EXPECT_TRUE(startsFromThePack(store));
            EXPECT_EQ(store.write(menu, "mine", 7), STORE_OK);
        }
        const std::string kept = path() + ".set-aside-" + std::to_string(count);
        EXPECT_EQ(contentOf(kept), before);
        ASSERT_EQ(log.lines().size(), 1u) << log.text();
        EXPECT_NE(log.text().find(kept), std::string::npos);
        fs::remove_all(path());
    }
    EXPECT_EQ(contentOf(path() + ".set-aside-1-wal"), "its log");
}

TEST_F(StoreFileTest, WithoutAFileTheStoreLivesInMemory)
{
    fs::create_directories(folder() + "/folder/sub");
    mkfifo((folder() + "/pipe").c_str(), 0600);
    std::ofstream(folder() + "/file").close();
    for (const std::string name : {"/folder", "/pipe", "/file/core.db", "/../../proc/vistane/core.db"}) {
        SCOPED_TRACE(name);
        const LogCapture log;
        CoreStore store(folder() + name);
        EXPECT_FALSE(store.isOnDisk());
        EXPECT_EQ(store.write(menu, "mine", 7), STORE_UNWRITABLE);
        EXPECT_EQ(store.reset(menu, titleKey), STORE_UNWRITABLE);
        EXPECT_EQ(store.setFact("imsi", "1"), STORE_UNWRITABLE);
        EXPECT_EQ(store.installPack({}), STORE_UNWRITABLE);
        EXPECT_TRUE(startsFromThePack(store));
        EXPECT_EQ(log.lines().size(), 1u) << log.text();
    }
    EXPECT_TRUE(fs::exists(folder() + "/folder/sub") && fs::is_fifo(folder() + "/pipe"));
}

TEST_F(StoreFileTest, ProgramsThatStartTogetherAgreeOnOneFile)
{
    const auto startTogether = [](const std::string& where) {
        std::vector<pid_t> children;
        for (int i = 0; i < 6; ++i) {
            const pid_t child = fork();
            if (child == 0) {
                const LogCapture log;
                CoreStore store(where);
                _exit(store.write(menu, "key" + std::to_string(i), i) == STORE_OK ? 0 : 1);
            }
            children.push_back(child);
        }
        for (pid_t child : children) {
            int status = -1;
            waitpid(child, &status, 0);
            EXPECT_EQ(status, 0) << where;
        }
        CoreStore store(where);
        for (int i = 0; i < 6; ++i) {
            SettingValue value;
            EXPECT_EQ(store.read(menu, "key" + std::to_string(i), value), STORE_OK) << where;
        }
    };
    std::ofstream(path()) << "no database";
    startTogether(path());
    EXPECT_TRUE(isSetAside(1) && !isSetAside(2));
    for (int i = 0; i < 20; ++i)
        startTogether(folder() + "/new" + std::to_string(i) + "/x/y/core.db");
}

namespace {

// Is, while it lives, a user whom file permissions bind, which they don't bind root.
class AsNobody
{
public:
    explicit AsNobody(const std::string& folder)
    {
        if (geteuid() != 0)
            return;
        for (const auto& entry : fs::recursive_directory_iterator(folder))
            EXPECT_EQ(chown(entry.path().c_str(), nobody, nobody), 0);
        EXPECT_EQ(chown(folder.c_str(), nobody, nobody), 0);
        EXPECT_EQ(seteuid(nobody), 0);
    }
    ~AsNobody() { EXPECT_EQ(seteuid(getuid()), 0); }

private:
    static constexpr uid_t nobody = 65534;
};

} // namespace

TEST_F(StoreFileTest, AReadOnlyStoreReadsAndAnswersWrites)
{
    const std::pair<mode_t, mode_t> modes[] = {{0400, 0700}, {0400, 0500}, {0600, 0500}}; // of file and folder
    for (const auto& [file, folderMode] : modes) {
        SCOPED_TRACE(file);
        makeStore();
        const AsNobody user(folder());
        chmod(path().c_str(), file);
        chmod(folder().c_str(), folderMode);
        const LogCapture log;
        CoreStore store(path());
        SettingValue value;
        EXPECT_EQ(store.write(menu, "mine", 8), STORE_UNWRITABLE);
        EXPECT_EQ(store.read(menu, "mine", value), STORE_OK);
        EXPECT_EQ(value, SettingValue(7));
        chmod(folder().c_str(), 0700);
        chmod(path().c_str(), 0600);
        EXPECT_FALSE(isSetAside(1));
    }
}

TEST_F(StoreFileTest, AReadOnlyStoreWithHalfAWriteIsNotRead)
{
    for (const char* companion : {"-wal", "-journal"}) {
        SCOPED_TRACE(companion);
        makeStore();
        std::ofstream(path() + companion) << "a write that waits";
        const AsNobody user(folder());
        chmod(folder().c_str(), 0500);
        {
            const LogCapture log;
            EXPECT_FALSE(CoreStore(path()).isOnDisk());
        }
        chmod(folder().c_str(), 0700);
        fs::remove(path() + companion);
    }
}

TEST_F(StoreFileTest, AnUnreadableFileIsSetAsideAndNotLost)
{
    makeStore();
    const std::string before = contentOf(path());
    {
        const AsNobody user(folder());
        chmod(path().c_str(), 0000);
        const LogCapture log;
        CoreStore store(path());
        EXPECT_TRUE(store.isOnDisk() && startsFromThePack(store));
    }
    chmod((path() + ".set-aside-1").c_str(), 0600);
    EXPECT_EQ(contentOf(path() + ".set-aside-1"), before);
}
