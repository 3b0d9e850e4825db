#include "MemoryFile.h"

#include "StatusValues.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

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
    const State state{false, "total", "free", "used"};
    put(mPath, "something longer than what is written now");
    MemoryFile::save(mPath.c_str(), state);
    EXPECT_EQ(content(mPath), "total\nfree\nused\n");
}

} // namespace
