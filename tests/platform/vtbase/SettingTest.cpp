#include "CoreStore.h"
#include "TestStore.h"
#include "VistaneSettingMgr.h"

#include <gtest/gtest.h>

using namespace std::string_literals;

namespace {

constexpr int menu = 5;

VistaneSettingMgr& manager()
{
    return *VistaneSettingMgr::getSettingMgrInstance();
}

} // namespace

TEST(Setting, OddTextsComeBackAsTheyWereAndFailuresLeaveTheOutputAlone)
{
    const TestStore store;
    vtTypes::String read = U"-";
    for (const vtTypes::String& text : {U""s, U"a\0b"s, U"123"s, U"\x10ffff"s, vtTypes::String(100000, U'x')}) {
        EXPECT_EQ(manager().setString(menu, "", text), STORE_OK);
        EXPECT_EQ(manager().getString(menu, "", read), STORE_OK);
        EXPECT_TRUE(read == text);
    }
    EXPECT_EQ(manager().setString(menu, "", {0xd800}), STORE_WRONG_TYPE);
    EXPECT_EQ(manager().getString(6, "", read), STORE_NOT_FOUND);
    EXPECT_EQ(read.size(), 100000u);
    int number = -1;
    bool flag = true;
    EXPECT_EQ(manager().getInt(menu, "", number), STORE_WRONG_TYPE);
    EXPECT_EQ(manager().getBoolean(menu, "", flag), STORE_WRONG_TYPE);
    EXPECT_TRUE(flag && number == -1);
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
