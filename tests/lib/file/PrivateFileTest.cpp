#include "PrivateFile.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

using namespace std::string_literals;

namespace {

class PrivateFileTest : public testing::Test
{
protected:
    void writeOther(const char* text) { std::ofstream(other) << text; }
    std::string contentOf(const std::string& name)
    {
        std::ifstream file(name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    mode_t modeOf(const std::string& name)
    {
        struct stat status
        {
        };
        stat(name.c_str(), &status);
        return status.st_mode & 07777;
    }

    QTemporaryDir dir;
    const std::string path = dir.filePath("message").toStdString();
    const std::string other = dir.filePath("other").toStdString();
};

TEST_F(PrivateFileTest, HoldsExactlyTheLastText)
{
    const std::string texts[] = {"long text\n with a NUL \0 in it"s, "short", "", std::string(1 << 20, '\xff')};
    for (const std::string& text : texts) {
        EXPECT_TRUE(PrivateFile::write(path.c_str(), text));
        EXPECT_EQ(PrivateFile::read(path.c_str()), text);
        EXPECT_EQ(contentOf(path), text);
    }
    EXPECT_EQ(modeOf(path), 0600u);
}

TEST_F(PrivateFileTest, AFileLeftReadableForAllIsClosedToThem)
{
    std::ofstream(path) << "old and longer";
    chmod(path.c_str(), 0666);
    EXPECT_TRUE(PrivateFile::write(path.c_str(), "new"));
    EXPECT_EQ(contentOf(path), "new");
    EXPECT_EQ(modeOf(path), 0600u);
}

TEST_F(PrivateFileTest, NothingPlantedIsFollowed)
{
    const struct
    {
        const char* what;
        int (*plant)(const char* other, const char* path);
    } plants[] = {
        {"symbolic link", symlink},
        {"hard link", link},
        {"pipe", [](const char*, const char* path) { return mkfifo(path, 0600); }},
        {"folder", [](const char*, const char* path) { return mkdir(path, 0700); }},
    };
    writeOther("precious");
    for (const auto& [what, plant] : plants) {
        SCOPED_TRACE(what);
        ASSERT_EQ(plant(other.c_str(), path.c_str()), 0);
        EXPECT_FALSE(PrivateFile::write(path.c_str(), "text"));
        EXPECT_EQ(PrivateFile::read(path.c_str()), "");
        EXPECT_EQ(contentOf(other), "precious");
        ASSERT_EQ(std::remove(path.c_str()), 0);
    }

    ASSERT_EQ(symlink(dir.filePath("none").toLocal8Bit(), path.c_str()), 0);
    EXPECT_FALSE(PrivateFile::write(path.c_str(), "text"));
    EXPECT_NE(access(dir.filePath("none").toLocal8Bit(), F_OK), 0) << "made what a dangling link names";
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
    EXPECT_EQ(contentOf(path), "theirs");
    EXPECT_EQ(modeOf(path), 0666u);
}

} // namespace
