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
namespace fs = std::filesystem;

namespace {

class PrivateFileTest : public testing::Test
{
protected:
    // Besides the planted file, which is taken away.
    void expectOnlyThePreciousFile() const
    {
        fs::remove(path);
        EXPECT_EQ(PrivateFile::read(other.c_str()), "precious");
        EXPECT_EQ(std::distance(fs::directory_iterator(dir.path().toStdString()), {}), 1) << "left behind";
    }

    QTemporaryDir dir;
    const std::string path = dir.filePath("message").toStdString();
    const std::string other = dir.filePath("other").toStdString();
};

TEST_F(PrivateFileTest, HoldsExactlyTheLastTextForItsOwnerOnly)
{
    std::ofstream(path) << "old";
    fs::permissions(path, fs::perms(0666));
    for (const std::string& text : {"long text\n with a NUL \0 in it"s, "short"s, ""s}) {
        EXPECT_TRUE(PrivateFile::write(path.c_str(), text));
        EXPECT_EQ(PrivateFile::read(path.c_str()), text);
    }
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(0600));
}

TEST_F(PrivateFileTest, NothingPlantedIsFollowed)
{
    const std::tuple<const char*, int (*)(const char* other, const char* path), bool> plants[] = {
        {"symbolic link", symlink, false},
        {"dangling link", [](const char*, const char* path) { return symlink("nowhere", path); }, false},
        {"hard link, whose name is ours to give to another file", link, true},
        {"pipe", [](const char*, const char* path) { return mkfifo(path, 0600); }, false},
        {"folder", [](const char*, const char* path) { return mkdir(path, 0700); }, false},
        {"somebody else's file",
         [](const char*, const char* path) {
             std::ofstream(path) << "theirs"; // which only root can give away
             return geteuid() == 0 ? chown(path, 65534, 65534) : std::remove(path) + symlink("nowhere", path);
         },
         false},
    };
    ASSERT_TRUE(PrivateFile::write(other.c_str(), "precious"));
    for (const auto& [what, plant, isReplaced] : plants) {
        SCOPED_TRACE(what);
        ASSERT_EQ(plant(other.c_str(), path.c_str()), 0);
        EXPECT_EQ(PrivateFile::read(path.c_str()), "");
        EXPECT_EQ(PrivateFile::write(path.c_str(), "text"), isReplaced);
        PrivateFile::remove(path.c_str());
        EXPECT_EQ(fs::exists(fs::symlink_status(path)), !isReplaced);
        expectOnlyThePreciousFile();
    }
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
    for (int i = 0; i < 3000; ++i)
        PrivateFile::write(path.c_str(), "text");
    isOver = true;
    swapper.join();
    expectOnlyThePreciousFile();
}

} // namespace
