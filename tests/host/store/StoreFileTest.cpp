#include "CoreStore.h"
#include "FileContent.h"
#include "LogCapture.h"
#include "Processes.h"
#include "Sqlite.h"

#include <QElapsedTimer>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sys/file.h>
#include <sys/stat.h>
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
        ASSERT_TRUE(connection.open(path(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE).isOk());
        sqlite3_db_config(connection.handle(), SQLITE_DBCONFIG_DEFENSIVE, 0, nullptr);
        ASSERT_TRUE(connection.execute(statement).isOk()) << sqlite3_errmsg(connection.handle());
    }

    QTemporaryDir mDir;
};

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

TEST_F(StoreFileTest, AFileThatIsNoWholeStoreIsKeptUnderAnotherName)
{
    const auto writeLog = [&] { std::ofstream(path() + "-wal") << std::string(300, 'L'); };
    const auto changeSize = [&](int bytes) {
        makeStore();
        fs::resize_file(path(), fs::file_size(path()) + bytes);
    };
    const auto makeAndRun = [&](const char* statements) { makeStore(), sql(statements); };
    const std::pair<const char*, std::function<void()>> spoilers[] = {
        {"of a few bytes", [&] { std::ofstream(path()) << "SQLite format 3"; }},
        {"empty beside its log", [&] { std::ofstream(path()).close(), writeLog(); }},
        {"gone, its log left", writeLog},
        {"another program's", [&] { sql("CREATE TABLE diary(entry)"); }},
        {"newer", [&] { sql("PRAGMA user_version = 99"); }},
        {"damaged",
         [&] {
             makeStore();
             std::fstream(path(), std::ios::in | std::ios::out).seekp(4096) << std::string(4096, '\xa5');
         }},
        {"cut", [&] { changeSize(-4096); }},
        {"longer by a part of a page", [&] { changeSize(96); }},
        {"without a table", [&] { makeAndRun("DROP TABLE profile"); }},
        {"with an index more", [&] { makeAndRun("CREATE INDEX more ON setting(value)"); }},
        {"a view for a table",
         [&] { makeAndRun("DROP TABLE fact; CREATE VIEW fact AS SELECT 1 AS name, 2 AS value"); }},
        {"a trigger that forgets",
         [&] { makeAndRun("CREATE TRIGGER forget AFTER INSERT ON setting BEGIN DELETE FROM setting; END"); }},
    };
    int count = 0;
    for (const auto& [what, spoil] : spoilers) {
        SCOPED_TRACE(what);
        spoil();
        const std::string before = contentOf(path());
        const std::string logBefore = contentOf(path() + "-wal");
        const LogCapture lines;
        {
            CoreStore store(path());
            EXPECT_TRUE(startsFromThePack(store));
            EXPECT_EQ(store.write(menu, "mine", 7), STORE_OK);
        }
        const std::string kept = path() + ".set-aside-" + std::to_string(++count);
        EXPECT_EQ(contentOf(kept), before);
        EXPECT_EQ(contentOf(kept + "-wal"), logBefore);
        ASSERT_EQ(lines.lines().size(), 1U) << lines.text();
        EXPECT_NE(lines.text().find(kept), std::string::npos);
        fs::remove(path());
    }
}

TEST_F(StoreFileTest, AFileOfAnEarlierProgramIsBroughtUpToDate)
{
    makeStore();
    sql(R"(ALTER TABLE setting RENAME TO s;
           CREATE TABLE setting(grp INTEGER NOT NULL, key TEXT NOT NULL, layer INTEGER NOT NULL, type INTEGER NOT NULL,
                                value NOT NULL, PRIMARY KEY(grp, key, layer)) WITHOUT ROWID;
           INSERT INTO setting SELECT * FROM s; DROP TABLE s; PRAGMA user_version = 1)");
    for (int start = 0; start < 2; ++start) {
        const LogCapture log;
        CoreStore store(path());
        SettingValue value;
        EXPECT_EQ(store.read(menu, "mine", value), STORE_OK);
        EXPECT_EQ(store.write(menu, "mine", 7), STORE_OK);
        EXPECT_EQ(log.text(), "");
    }
    EXPECT_FALSE(isSetAside(1));
}

TEST_F(StoreFileTest, AValueThatNoSettingCanHaveIsOfAWrongType)
{
    makeStore();
    sql("INSERT INTO setting VALUES(5, 'big', 1, 0, 4294967298), (5, 'bool', 1, 1, 2147483648), "
        "(5, 'kind', 1, 7, 1), (5, 'text', 1, 0, 'x'), (5, 'blob', 1, 2, x'00')");
    const LogCapture log;
    CoreStore store(path());
    for (const char* key : {"big", "text", "blob", "kind", "bool"}) {
        SettingValue value = 3;
        EXPECT_EQ(store.read(menu, key, value), STORE_WRONG_TYPE) << key;
        EXPECT_EQ(value, SettingValue(3));
    }
    std::vector<CoreStore::Listed> listed;
    EXPECT_EQ(store.list(listed), STORE_OK);
    EXPECT_EQ(listed.size(), OperatorPack::builtIn().settings.size() + 1);
    EXPECT_EQ(log.lines().size(), 5U) << "each is named";
}

TEST_F(StoreFileTest, AFileThatIsReplacedIsNoticedByTheNextWrite)
{
    makeStore();
    fs::rename(path(), folder() + "/other.db");
    CoreStore store(path());
    fs::rename(folder() + "/other.db", path());
    for (const StoreStatus mine : {STORE_OK, STORE_NOT_FOUND}) {
        const LogCapture log;
        SettingValue value;
        EXPECT_EQ(store.write(menu, "later", 1), STORE_OK);
        EXPECT_EQ(store.read(menu, "mine", value), mine) << "it is the new one";
        EXPECT_EQ(CoreStore(path()).read(menu, "later", value), STORE_OK);
        EXPECT_NE(log.text().find("was replaced"), std::string::npos);
        fs::remove(path());
    }
}

// A person waits for the screen meanwhile, and for all that one choice writes.
TEST_F(StoreFileTest, AStrangersLockIsWaitedForOnceAndNotLong)
{
    makeStore();
    Sqlite::Connection stranger;
    ASSERT_TRUE(stranger.open(path(), SQLITE_OPEN_READWRITE).isOk() &&
                stranger.execute("BEGIN IMMEDIATE").isOk());
    const int file = open(path().c_str(), O_RDONLY);
    ASSERT_EQ(flock(file, LOCK_EX), 0);
    QElapsedTimer time;
    time.start();
    CoreStore store(path());
    EXPECT_LT(time.restart(), 2500) << "no lock holds up a start";
    for (int i = 0; i < 20; ++i)
        EXPECT_EQ(store.write(menu, "mine", i), STORE_BUSY);
    EXPECT_GE(time.elapsed(), 300);
    EXPECT_LT(time.elapsed(), 6000) << "twenty times the patience were ten seconds";
    SettingValue value;
    EXPECT_EQ(store.read(menu, "mine", value), STORE_OK);
    ASSERT_TRUE(stranger.execute("ROLLBACK").isOk());
    EXPECT_EQ(store.write(menu, "mine", 8), STORE_OK);
    close(file);
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
        EXPECT_EQ(store.installPack({}), STORE_UNWRITABLE);
        EXPECT_TRUE(startsFromThePack(store));
        EXPECT_EQ(log.lines().size(), 1u) << log.text();
    }
    EXPECT_TRUE(fs::exists(folder() + "/folder/sub") && fs::is_fifo(folder() + "/pipe"));
}

TEST_F(StoreFileTest, ProgramsThatStartTogetherAgreeOnOneFile)
{
    std::ofstream(path()) << "no database";
    for (int start = 0; start < 20; ++start) {
        const std::string where =
            start == 0 ? path() : folder() + "/new" + std::to_string(start) + "/x/y/core.db";
        EXPECT_TRUE(succeedTogether(6, [&where](int i) {
            const LogCapture log;
            return CoreStore(where).write(menu, std::to_string(i), i);
        }));
        SettingValue value;
        for (int i = 0; i < 6; ++i)
            EXPECT_EQ(CoreStore(where).read(menu, std::to_string(i), value), STORE_OK) << where;
    }
    EXPECT_TRUE(isSetAside(1) && !isSetAside(2));
}

// What everybody may do with the file and its folder, whether another program's write waits beside it, and what comes
// of that: the store is read, or stands aside for a new one, or is not touched.
TEST_F(StoreFileTest, AFileThatCannotBeWrittenIsReadOrLeftAlone)
{
    enum Outcome { Read, SetAside, LeftAlone };
    const std::tuple<mode_t, mode_t, const char*, Outcome> cases[] = {
        {0444, 0777, "", Read},
        {0444, 0555, "", Read},
        {0666, 0555, "", Read},
        {0666, 0555, "-wal", LeftAlone},
        {0666, 0555, "-journal", LeftAlone},
        {0000, 0777, "", SetAside},
    };
    for (const auto& [file, folderMode, companion, outcome] : cases) {
        SCOPED_TRACE(std::to_string(file) + ' ' + std::to_string(folderMode) + companion);
        makeStore();
        const std::string before = contentOf(path());
        if (*companion)
            std::ofstream(path() + companion) << "a write that waits";
        chmod(path().c_str(), file);
        chmod(folder().c_str(), folderMode);
        ASSERT_EQ(seteuid(getuid() == 0 ? 65534 : getuid()), 0) << "these modes do not bind root";
        {
            const LogCapture log;
            CoreStore store(path());
            SettingValue value;
            EXPECT_EQ(store.isOnDisk(), outcome != LeftAlone);
            EXPECT_EQ(store.write(menu, "mine", 8), outcome == SetAside ? STORE_OK : STORE_UNWRITABLE);
            EXPECT_EQ(store.read(menu, "mine", value), outcome == LeftAlone ? STORE_NOT_FOUND : STORE_OK);
            EXPECT_TRUE(outcome != Read || value == SettingValue(7));
        }
        ASSERT_EQ(seteuid(getuid()), 0);
        chmod(folder().c_str(), 0700);
        EXPECT_EQ(isSetAside(1), outcome == SetAside);
        const std::string kept = path() + (outcome == SetAside ? ".set-aside-1" : "");
        chmod(kept.c_str(), 0600);
        EXPECT_EQ(contentOf(kept), before);
        fs::remove(path());
        fs::remove(path() + companion);
    }
}
