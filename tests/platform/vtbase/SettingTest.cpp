#include "CoreStore.h"
#include "TestStore.h"
#include "VistaneSettingMgr.h"

#include <gtest/gtest.h>

#include <csignal>
#include <limits>
#include <sys/wait.h>
#include <unistd.h>

using namespace std::string_literals;

namespace {

constexpr int menu = 5;

VistaneSettingMgr& manager()
{
    return *VistaneSettingMgr::getSettingMgrInstance();
}

const char* const pack = R"({"settings": {"VtCore.Menu": {"number": 7, "flag": true, "text": "seven"}}})";

} // namespace

TEST(Setting, EachTypeReadsAsItself)
{
    const TestStore store(pack);
    int number = -1;
    bool flag = false;
    vtTypes::String text = U"-";
    EXPECT_EQ(manager().getInt(menu, "number", number), STORE_OK);
    EXPECT_EQ(manager().getBoolean(menu, "flag", flag), STORE_OK);
    EXPECT_EQ(manager().getString(menu, "text", text), STORE_OK);
    EXPECT_EQ(number, 7);
    EXPECT_TRUE(flag);
    EXPECT_EQ(text, U"seven");
}

TEST(Setting, AFailedReadLeavesTheOutputAlone)
{
    const TestStore store(pack);
    int number = -1;
    bool flag = true;
    vtTypes::String text = U"-";
    EXPECT_EQ(manager().getInt(menu, "flag", number), STORE_WRONG_TYPE);
    EXPECT_EQ(manager().getInt(menu, "nothing", number), STORE_NOT_FOUND);
    EXPECT_EQ(manager().getInt(6, "number", number), STORE_NOT_FOUND);
    EXPECT_EQ(manager().getBoolean(menu, "number", flag), STORE_WRONG_TYPE);
    EXPECT_EQ(manager().getString(menu, "number", text), STORE_WRONG_TYPE);
    EXPECT_EQ(number, -1);
    EXPECT_TRUE(flag);
    EXPECT_EQ(text, U"-");
}

TEST(Setting, TheUsersValueWinsUntilItIsReset)
{
    const TestStore store(pack);
    ASSERT_EQ(manager().setInt(menu, "number", 8), STORE_OK);
    int number = 0;
    manager().getInt(menu, "number", number);
    EXPECT_EQ(number, 8);

    CoreStore& core = CoreStore::instance();
    std::vector<CoreStore::Listed> settings;
    ASSERT_EQ(core.list(settings), STORE_OK);
    ASSERT_EQ(settings.size(), 3u);
    EXPECT_EQ(settings[1].setting.key, "number");
    EXPECT_EQ(settings[1].setting.value, SettingValue(8));
    EXPECT_EQ(settings[1].layer, CoreStore::Layer::User);
    EXPECT_EQ(settings[2].layer, CoreStore::Layer::Pack);

    EXPECT_EQ(core.reset(menu, "number"), STORE_OK);
    EXPECT_EQ(core.reset(menu, "number"), STORE_NOT_FOUND);
    manager().getInt(menu, "number", number);
    EXPECT_EQ(number, 7);
}

TEST(Setting, OddValuesComeBackAsTheyWere)
{
    const TestStore store;
    CoreStore& core = CoreStore::instance();
    for (int group : {-1, 0, 11, 4711}) {
        for (int number : {0, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
            SettingValue value;
            EXPECT_EQ(core.write(group, "n", number), STORE_OK);
            EXPECT_EQ(core.read(group, "n", value), STORE_OK);
            EXPECT_EQ(value, SettingValue(number));
        }
    }
    for (const vtTypes::String& text : {U""s, U"a\0b"s, U"123"s, U"\x10ffff"s, vtTypes::String(100000, U'x')}) {
        vtTypes::String read = U"-";
        EXPECT_EQ(manager().setString(menu, "", text), STORE_OK);
        EXPECT_EQ(manager().getString(menu, "", read), STORE_OK);
        EXPECT_TRUE(read == text);
    }
    vtTypes::String read;
    manager().setString(menu, "s", U"kept");
    EXPECT_EQ(manager().setString(menu, "s", {0xd800}), STORE_WRONG_TYPE);
    manager().getString(menu, "s", read);
    EXPECT_EQ(read, U"kept");
}

TEST(Setting, AnotherProgramsWriteIsSeenByTheNextRead)
{
    const TestStore store;
    CoreStore other(store.path());
    for (int i = 0; i < 100; ++i) {
        int number = -1;
        ASSERT_EQ(other.write(menu, "n", i), STORE_OK);
        ASSERT_EQ(manager().getInt(menu, "n", number), STORE_OK);
        ASSERT_EQ(number, i);
    }
}

TEST(Setting, AKilledProgramLosesNothingThatWasAcknowledged)
{
    const TestStore store;
    int acknowledged[2];
    ASSERT_EQ(pipe(acknowledged), 0);
    const pid_t writer = fork();
    if (writer == 0) {
        CoreStore mine(store.path());
        for (int i = 0;; ++i)
            if (mine.write(menu, "n", i) != STORE_OK || write(acknowledged[1], &i, sizeof i) != sizeof i)
                _exit(1);
    }
    close(acknowledged[1]);
    int last = -1;
    while (last < 50 && read(acknowledged[0], &last, sizeof last) == sizeof last) {
    }
    kill(writer, SIGKILL);
    waitpid(writer, nullptr, 0);
    while (read(acknowledged[0], &last, sizeof last) == sizeof last) {
    }
    close(acknowledged[0]);

    int number = -1;
    EXPECT_GE(last, 50);
    EXPECT_EQ(manager().getInt(menu, "n", number), STORE_OK);
    EXPECT_GE(number, last);
}
