#include "Log.h"
#include "LogCapture.h"
#include "Processes.h"
#include "aplog.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>

namespace {

const Log logger("Module");

TEST(Log, EveryLineEndsOnceAndThoseAboveLevelSevenAreDropped)
{
    const LogCapture log;
    logger(7, "plain %d", 1);
    logger(8, "dropped");
    logger(0, "ended %s\n", "x");
    logger(7, "%s", "ended by its argument\n");
    logger(7, "%s", std::string(100000, 'y').c_str());
    logger({3, 70}, "at a line of its own");
    const std::string head = "(Module:*)[~~~~vistane~~~~]";
    EXPECT_EQ(log.lines(), (std::vector{head + "plain 1", head + "ended x", head + "ended by its argument",
                                        head + std::string(100000, 'y'), head + "at a line of its own"}));
    EXPECT_NE(log.text().find("(Module:70)"), std::string::npos);
}

// Sends `lines` of a kilobyte to a log, in processes that begin it or go on with it. Whether each could open it.
bool writeInChildren(const std::string& path, int lines, int children = 1)
{
    return succeedTogether(children, [&](int) {
        setenv("VISTANE_LOG", path.c_str(), 1);
        _aplog_init_orig("test", 0);
        for (int i = 0; i < lines; ++i)
            logger(3, "%s", std::string(1000, static_cast<char>('a' + i % 26)).c_str());
        return libaplog_to_module_ptr ? 0 : 1;
    });
}

TEST(Log, AFileThatIsFullBecomesTheOldOne)
{
    const QTemporaryDir dir;
    const std::string path = dir.filePath("log").toStdString();
    EXPECT_TRUE(writeInChildren(path, 500, 3));
    EXPECT_TRUE(writeInChildren(path, 1));
    size_t lines = 0;
    for (const std::string& name : {path, path + ".1"}) {
        std::ifstream file(name);
        for (std::string line; std::getline(file, line); ++lines)
            EXPECT_EQ(line.size(), std::string("(Module:00)[~~~~vistane~~~~]").size() + 1000);
    }
    EXPECT_EQ(lines, 1501U);
    // While one of several programs renames it, the others go on, so the bound is exact for one alone.
    EXPECT_TRUE(writeInChildren(path, 2500));
    EXPECT_LT(std::filesystem::file_size(path), 1100U * 1024);
    EXPECT_LT(std::filesystem::file_size(path + ".1"), 1100U * 1024);
}

TEST(Log, APipeWithoutAReaderHoldsNobodyUp)
{
    const QTemporaryDir dir;
    const std::string path = dir.filePath("pipe").toStdString();
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    EXPECT_FALSE(writeInChildren(path, 1)) << "goes to standard output";
    const int reader = open(path.c_str(), O_RDONLY | O_NONBLOCK);
    EXPECT_TRUE(writeInChildren(path, 500)) << "more than a pipe holds, and nobody reads";
    close(reader);
}

} // namespace
