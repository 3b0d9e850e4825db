#include "CoreStore.h"
#include "NR_EngineUtils.h"
#include "Sqlite.h"
#include "Table.h"
#include "TestStore.h"
#include "VistaneSettingMgr.h"
#include "Vt_EventAndStatusFacade.h"
#include "Vt_RkEventStatusAdapter.h"
#include "vtString.h"

#include <QTest>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>

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
    int number = -1;
    bool flag = true;
    EXPECT_EQ(manager().getInt(menu, "", number), STORE_WRONG_TYPE);
    EXPECT_EQ(manager().getBoolean(menu, "", flag), STORE_WRONG_TYPE);
    EXPECT_TRUE(flag && number == -1 && read.size() == 100000);
}

// Whatever is remembered of earlier reads.
TEST(Setting, AnotherProgramsWriteIsSeenByTheNextRead)
{
    const TestStore store;
    CoreStore other(store.path());
    Sqlite::Connection tidy;
    ASSERT_TRUE(tidy.open(store.path(), SQLITE_OPEN_READWRITE).isOk());
    OperatorPack pack;
    std::optional<int> user, fromPack;
    const std::function<void(int)> writers[] = {
        [&](int i) { other.write(menu, "n", *(user = i)); },
        [&](int i) {
            pack.settings = {{menu, "n", *(fromPack = -i)}}, other.installPack(pack);
        },
        [&](int) { user.reset(), other.reset(menu, "n"); },
        [&](int i) { manager().setInt(menu, "n", *(user = i)); },
        [&](int) { (void)tidy.execute("PRAGMA wal_checkpoint(TRUNCATE)"); },
    };
    for (int i = 0; i < 300; ++i) {
        writers[i * 7 % 5](i);
        for (const int again : {1, 2}) {
            int number = -1;
            manager().getInt(menu, "n", number);
            ASSERT_EQ(number, user.value_or(fromPack.value_or(-1))) << i << " read " << again;
        }
    }
}

// Whoever waits for one only asks, again and again.
TEST(Fact, IsFoundInAFileThatComesLater)
{
    const QTemporaryDir dir;
    const std::string path = dir.filePath("core.db").toStdString();
    std::filesystem::create_directory(path); // in its place
    CoreStore waiting(path);
    std::string text;
    EXPECT_EQ(waiting.fact("imsi", text), STORE_NOT_FOUND);
    std::filesystem::remove(path);
    ASSERT_EQ(CoreStore(path).setFact("imsi", "1"), STORE_OK);
    EXPECT_TRUE(QTest::qWaitFor([&] { return waiting.fact("imsi", text) == STORE_OK; }));

    std::filesystem::remove(path);
    ASSERT_EQ(CoreStore(path).setFact("msisdn", "2"), STORE_OK);
    EXPECT_EQ(waiting.fact("msisdn", text), STORE_OK);
    EXPECT_TRUE(waiting.isOnDisk());
}

TEST(Fact, WhatTheDeviceCannotTellLeavesTheOutputAlone)
{
    const TestStore store;
    CoreStore& core = CoreStore::instance();
    Vt_RkEventStatusAdapter identity;
    vtTypes::String text = U"-";
    int number = 4;
    bool flag = true;
    EXPECT_NE(identity.getIMSI(text), 0);
    EXPECT_NE(Vt_EventAndStatusFacade::instance()->getRoamingStatus(number), 0);
    EXPECT_NE(NR_EngineUtils::friendlyNetworkStatus(flag), 0);
    EXPECT_TRUE(text == U"-" && number == 4 && flag);

    core.setFact("imsi", "T\xc3\xa9l");
    core.setFact("friendly", "0");
    EXPECT_EQ(identity.getIMSI(text) + NR_EngineUtils::friendlyNetworkStatus(flag), 0);
    EXPECT_TRUE(text == U"T\u00e9l" && !flag);
    EXPECT_NE(identity.getMSISDN(text), 0);
    for (const auto& [name, value] :
         table<2>("roaming|far;roaming|1 ;roaming|99999999999;friendly|yes;model|\xff"))
        EXPECT_EQ(core.setFact(name, value), STORE_WRONG_TYPE) << name << value;
}

TEST(Fact, MacrosInLinksAreFilledOnce)
{
    const TestStore store(
        R"({"device": {"model": "V 1/\u00e4&@MSISDN@", "msisdn": "+155", "dpp_version": "2.0~a-b_c"}})");
    for (auto [url, filled] : table<2>(R"(
http://h/?a=1&b=%40|http://h/?a=1&b=%40;http://h/?m=@MSISDN@&n=@MSISDN@|http://h/?m=%2B155&n=%2B155
@DEVICE_MODEL@|V%201%2F%C3%A4%26%40MSISDN%40;@@DPP_VERSION@@|@2.0~a-b_c@;[@DP_CLIENT_SW_VERSION@]|[]
@msisdn@ @MSISDN|@msisdn@ @MSISDN;@DPP_@MSISDN@VERSION@|@DPP_%2B155VERSION@)")) {
        NR_EngineUtils::replacePatternsInURL(url);
        EXPECT_EQ(url, filled);
    }
}

// The first and the last character of each length, and those around the surrogates.
TEST(Text, Utf8IsDecodedStrictlyAndEncodedBack)
{
    const vtTypes::String text = U"\0\x7f\x80\x7ff\x800\xd7ff\xe000\xffff\x10000\x10ffff"s;
    const std::string utf8 = "\0\x7f\xc2\x80\xdf\xbf\xe0\xa0\x80\xed\x9f\xbf\xee\x80\x80\xef\xbf\xbf"
                             "\xf0\x90\x80\x80\xf4\x8f\xbf\xbf"s;
    vtTypes::String decoded;
    std::string encoded;
    EXPECT_TRUE(vtStringFromUtf8(utf8, decoded));
    EXPECT_TRUE(vtStringEncodeUtf8(text, encoded));
    // Three that are overlong, a surrogate, one above the last character, no lead, cut short by the end and by another.
    for (const std::string bad : {"\xc1\xbf", "\xe0\x9f\xbf", "\xf0\x8f\xbf\xbf", "\xed\xa0\x80",
                                  "\xf4\x90\x80\x80", "\xff", "\xe2\x82", "\xe2\x82 "})
        EXPECT_FALSE(vtStringFromUtf8(bad, decoded)) << testing::PrintToString(bad);
    EXPECT_FALSE(vtStringEncodeUtf8({0xd800}, encoded) || vtStringEncodeUtf8({0x110000}, encoded));
    EXPECT_TRUE(decoded == text);
    EXPECT_EQ(encoded, utf8);
}
