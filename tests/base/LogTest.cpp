#include "Log.h"
#include "LogCapture.h"
#include "aplog.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

const Log logger("Module");

TEST(Log, EveryLineEndsOnce)
{
    const LogCapture log;
    logger(7, "plain %d", 1);
    logger(7, "ended %s\n", "x");
    logger(7, "%s", "ended by its argument\n");
    logger(7, "%s", std::string(100000, 'y').c_str());
    logger({3, 70}, "at a line of its own");
    EXPECT_EQ(log.lines(), (std::vector<std::string>{
                               "(Module:*)[~~~~vistane~~~~]plain 1",
                               "(Module:*)[~~~~vistane~~~~]ended x",
                               "(Module:*)[~~~~vistane~~~~]ended by its argument",
                               "(Module:*)[~~~~vistane~~~~]" + std::string(100000, 'y'),
                               "(Module:*)[~~~~vistane~~~~]at a line of its own",
                           }));
    EXPECT_NE(log.text().find("(Module:70)"), std::string::npos);
}

TEST(Log, LevelsAboveSevenAreDropped)
{
    const LogCapture log;
    for (int level = 0; level < 10; ++level)
        logger(level, "%d", level);
    ASSERT_EQ(log.lines().size(), 8u);
    EXPECT_TRUE(log.lines().back().ends_with("]7"));
}

// Sends `lines` of a kilobyte through a log of its own, in a process of its own; its exit status.
int writeInChild(const std::string& path, int lines)
{
    const pid_t child = fork();
    if (child == 0) {
        setenv("VISTANE_LOG", path.c_str(), 1);
        _aplog_init_orig("test", 0);
        for (int i = 0; i < lines; ++i)
            logger(3, "%s", std::string(1000, static_cast<char>('a' + i % 26)).c_str());
        _exit(libaplog_to_module_ptr ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    return status;
}

TEST(Log, AFileThatIsFullBecomesTheOldOne)
{
    const QTemporaryDir dir;
    const std::string path = dir.filePath("log").toStdString();
    std::vector<std::thread> writers;
    for (int i = 0; i < 3; ++i)
        writers.emplace_back([&] { EXPECT_EQ(writeInChild(path, 500), 0); });
    for (std::thread& writer : writers)
        writer.join();
    EXPECT_EQ(writeInChild(path, 1), 0);
    size_t lines = 0;
    for (const std::string& name : {path, path + ".1"}) {
        std::ifstream file(name);
        for (std::string line; std::getline(file, line); ++lines)
            EXPECT_EQ(line.size(), std::string("(Module:00)[~~~~vistane~~~~]").size() + 1000);
        EXPECT_LT(std::filesystem::file_size(name), 1100U * 1024) << name;
    }
    EXPECT_EQ(lines, 1501U);
}

TEST(Log, APipeWithoutAReaderHoldsNobodyUp)
{
    const QTemporaryDir dir;
    const std::string path = dir.filePath("pipe").toStdString();
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    EXPECT_NE(writeInChild(path, 1), 0) << "goes to standard output";
    const int reader = open(path.c_str(), O_RDONLY | O_NONBLOCK);
    EXPECT_EQ(writeInChild(path, 500), 0) << "more than a pipe holds, and nobody reads";
    close(reader);
}

} // namespace
