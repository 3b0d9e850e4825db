#include "PrivateFile.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

using namespace std::string_literals;

namespace {

class PrivateFileTest : public testing::Test
{
protected:
    mode_t modeOf(const std::string& name)
    {
        struct stat status = {};
        stat(name.c_str(), &status);
        return status.st_mode & 07777;
    }

    QTemporaryDir dir;
    const std::string path = dir.filePath("message").toStdString();
    const std::string other = dir.filePath("other").toStdString();
};

TEST_F(PrivateFileTest, HoldsExactlyTheLastTextForItsOwnerOnly)
{
    std::ofstream(path) << "old";
    chmod(path.c_str(), 0666);
    for (const std::string& text : {"long text\n with a NUL \0 in it"s, "short"s, ""s}) {
        EXPECT_TRUE(PrivateFile::write(path.c_str(), text));
        EXPECT_EQ(PrivateFile::read(path.c_str()), text);
    }
    EXPECT_EQ(modeOf(path), 0600u);
}

TEST_F(PrivateFileTest, NothingPlantedIsFollowed)
{
    using Plant = int (*)(const char* other, const char* path);
    const Plant pipe = [](const char*, const char* path) { return mkfifo(path, 0600); };
    const Plant folder = [](const char*, const char* path) { return mkdir(path, 0700); };
    ASSERT_TRUE(PrivateFile::write(other.c_str(), "precious"));
    for (const Plant plant : {Plant(symlink), Plant(link), pipe, folder}) {
        ASSERT_EQ(plant(other.c_str(), path.c_str()), 0);
        EXPECT_EQ(PrivateFile::read(path.c_str()), "");
        // Only the name of a hard link is ours to give to another file.
        EXPECT_EQ(PrivateFile::write(path.c_str(), "text"), plant == link);
        PrivateFile::remove(path.c_str());
        EXPECT_EQ(std::remove(path.c_str()) == 0, plant != link);
        EXPECT_EQ(PrivateFile::read(other.c_str()), "precious");
    }

    ASSERT_EQ(std::remove(other.c_str()), 0);
    ASSERT_EQ(symlink(other.c_str(), path.c_str()), 0);
    EXPECT_FALSE(PrivateFile::write(path.c_str(), "text"));
    EXPECT_NE(access(other.c_str(), F_OK), 0) << "made what a dangling link names";
}

// Somebody swaps our file for a hard link to a precious one, again and again while we write.
TEST_F(PrivateFileTest, ALinkThatIsPlantedInBetweenIsNotFollowed)
{
    std::ofstream(other) << "precious";
    std::atomic<bool> isOver = false;
    std::thread swapper([&] {
        while (!isOver) {
            std::remove(path.c_str());
            [[maybe_unused]] const int linked = link(other.c_str(), path.c_str());
        }
    });
    int written = 0;
    for (int i = 0; i < 3000; ++i)
        written += PrivateFile::write(path.c_str(), "text");
    isOver = true;
    swapper.join();
    std::remove(path.c_str());
    EXPECT_EQ(PrivateFile::read(other.c_str()), "precious") << written << " were written";
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path().toStdString()), {}), 1)
        << "left behind";
}

TEST_F(PrivateFileTest, SomebodyElsesFileIsLeftAlone)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can give a file away";
    std::ofstream(path) << "theirs";
    ASSERT_EQ(chown(path.c_str(), 65534, 65534), 0);
    chmod(path.c_str(), 0666);
    EXPECT_FALSE(PrivateFile::write(path.c_str(), "mine"));
    EXPECT_EQ(PrivateFile::read(path.c_str()), "");
    PrivateFile::remove(path.c_str());
    EXPECT_EQ(modeOf(path), 0666u);
    ASSERT_EQ(chown(path.c_str(), 0, 0), 0);
    EXPECT_EQ(PrivateFile::read(path.c_str()), "theirs");
}

} // namespace
