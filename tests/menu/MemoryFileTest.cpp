#include "MemoryFile.h"

#include "StatusValues.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <iterator>

#include <sys/stat.h>
#include <unistd.h>

namespace {

using StatusValues::State;

class MemoryFileTest : public testing::Test
{
protected:
    static void put(const std::string& path, const std::string& content) { std::ofstream(path) << content; }

    static std::string content(const std::string& path)
    {
        std::ifstream file(path);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    std::string loaded() const
    {
        State state;
        MemoryFile::load(mPath.c_str(), state);
        return state.totalMemoryText + '|' + state.freeMemoryText + '|' + state.usedMemoryText;
    }

    QTemporaryDir mDir;
    const std::string mPath = mDir.filePath("vtmem").toStdString();
    const std::string mOther = mDir.filePath("other").toStdString();
};

TEST_F(MemoryFileTest, ReadsTheLinesThereAre)
{
    EXPECT_EQ(loaded(), "680 K|680 K|0 K") << "no file";
    const std::pair<const char*, const char*> cases[] = {
        {"1 M\n2 M\n3 M\n", "1 M|2 M|3 M"}, {"1 M\n2 M\n3 M", "1 M|2 M|3 M"}, {"1 M\n2 M\n", "1 M|2 M|0 K"},
        {"1 M", "1 M|680 K|0 K"},           {"", "680 K|680 K|0 K"},          {"\n\n\n", "||"},
        {"1\n2\n3\n4\n", "1|2|3"},
    };
    for (const auto& [text, expected] : cases) {
        put(mPath, text);
        EXPECT_EQ(loaded(), expected) << text;
    }
}

TEST_F(MemoryFileTest, WritesWhatItReads)
{
    const State state{false, "total", "free", "used", {}};
    umask(0);
    MemoryFile::save(mPath.c_str(), state);
    EXPECT_EQ(content(mPath), "total\nfree\nused\n");
    struct stat status;
    ASSERT_EQ(stat(mPath.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600u);

    put(mPath, "something longer than what is written now");
    MemoryFile::save(mPath.c_str(), state);
    EXPECT_EQ(content(mPath), "total\nfree\nused\n");
}

TEST_F(MemoryFileTest, LeavesWhatIsNotItsOwnAlone)
{
    // What may stand where the file should be: links, a pipe, a folder, somebody else's file.
    const std::function<int()> traps[] = {
        [&] { return symlink(mOther.c_str(), mPath.c_str()); },
        [&] { return symlink("nowhere", mPath.c_str()); },
        [&] { return link(mOther.c_str(), mPath.c_str()); },
        [&] { return mkfifo(mPath.c_str(), 0600); },
        [&] { return mkdir(mPath.c_str(), 0700); },
        [&] {
            return geteuid() ? 0 : rename(mOther.c_str(), mPath.c_str()) + chown(mPath.c_str(), 65534, 65534);
        },
    };
    for (const auto& trap : traps) {
        put(mOther, "a\nb\nc\n");
        ASSERT_EQ(trap(), 0);
        EXPECT_EQ(loaded(), "680 K|680 K|0 K");
        MemoryFile::save(mPath.c_str(), State());
        EXPECT_EQ(content(access(mOther.c_str(), F_OK) == 0 ? mOther : mPath), "a\nb\nc\n");
        remove(mPath.c_str());
    }
    EXPECT_NE(access(mDir.filePath("nowhere").toUtf8(), F_OK), 0) << "written through a dangling link";
}

} // namespace
