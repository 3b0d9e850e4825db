#include "DesktopStandIn.h"
#include "FileLock.h"
#include "LinkTable.h"
#include "LogCapture.h"
#include "NR_MessageFile.h"
#include "NR_URLLauncher.h"
#include "TestStore.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <unistd.h>

namespace {

class HostileLinks : public testing::Test
{
protected:
    TestStore store;
    FileLock lock{NR_MessageFile::path};
    DesktopStandIn desktop{{"xdg-open", "gnome-calendar", "gnome-contacts"}};
    LogCapture quiet;
};

TEST_F(HostileLinks, StartOneProgramWithOneArgumentOrNothing)
{
    unlink(NR_MessageFile::path);
    for (const LinkRow& row : linkTable("hostile.tsv")) {
        SCOPED_TRACE(row.where);
        NR_URLLauncher::launch(vtTypes::ID(row.at(0)));
        std::vector<std::vector<std::string>> expected;
        if (row.at(1) != "nothing")
            expected.push_back({row.at(1), row.at(2)});
        std::vector<std::vector<std::string>> started;
        for (const auto& call : desktop.take(expected.size()))
            started.push_back(call.words);
        EXPECT_EQ(started, expected);
    }
    usleep(100000);
    EXPECT_TRUE(desktop.take(0).empty()) << "something was started late";
    EXPECT_NE(access("/tmp/vt-pwned", F_OK), 0);
}

TEST_F(HostileLinks, AMegabyteOfAnythingIsSurvived)
{
    const std::string much(1 << 20, '\xff');
    for (const char* start : {"", "http:", "mailto:", "mailto:a?body=", "smsto:1?text=", "smsto:", "tel:",
                              "midlet:", "rtsp:", "ical:", "vtel:"})
        NR_URLLauncher::launch(vtTypes::ID(start + much));
    EXPECT_FALSE(NR_URLLauncher::launch(vtTypes::ID("http:" + much))) << "is more than can be handed over";
    const auto calls = desktop.take(1);
    ASSERT_EQ(calls.size(), 1u) << "only a call can be made of so much, one without a number";
    EXPECT_EQ(calls[0].words.back(), "tel:");
}

TEST_F(HostileLinks, ALinkPlantedForTheMessageFileIsNeitherWrittenNorSent)
{
    QTemporaryDir dir;
    const std::string precious = dir.filePath("precious").toStdString();
    std::ofstream(precious) << "secret";
    unlink(NR_MessageFile::path);
    ASSERT_EQ(symlink(precious.c_str(), NR_MessageFile::path), 0);
    NR_URLLauncher::launch(vtTypes::ID("smsto:1?text=x"));
    unlink(NR_MessageFile::path);

    std::ifstream file(precious);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), "secret");
    const auto calls = desktop.take(1);
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].words.back(), "sms:1");
}

} // namespace
