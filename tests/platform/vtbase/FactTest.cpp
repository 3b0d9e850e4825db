#include "CoreStore.h"
#include "NR_ContentCache.h"
#include "NR_EngineUtils.h"
#include "NR_OpProfile.h"
#include "SettingGroups.h"
#include "TestStore.h"
#include "Vt_EventAndStatusFacade.h"
#include "Vt_RkEventStatusAdapter.h"

#include <gtest/gtest.h>

#include <algorithm>

TEST(Fact, WhatTheDeviceCannotTellLeavesTheOutputAlone)
{
    const TestStore store;
    CoreStore& core = CoreStore::instance();
    Vt_RkEventStatusAdapter identity;
    auto* facade = Vt_EventAndStatusFacade::instance();
    vtTypes::String text = U"-";
    int number = 4;
    bool flag = true;
    EXPECT_NE(identity.getIMSI(text), 0);
    EXPECT_NE(identity.getMSISDN(text), 0);
    EXPECT_NE(facade->getHomeNetworkName(text), 0);
    EXPECT_NE(facade->getCurrentNetworkName(text), 0);
    EXPECT_NE(facade->getRoamingStatus(number), 0);
    EXPECT_NE(NR_EngineUtils::friendlyNetworkStatus(flag), 0);
    EXPECT_NE(NR_EngineUtils::getDownloadOptionSetting(number), 0);
    EXPECT_EQ(text, U"-");
    EXPECT_EQ(number, 4);
    EXPECT_TRUE(flag);
    EXPECT_FALSE(NR_OpProfile().isUserSelectProfile());

    core.setFact("imsi", "00101");
    core.setFact("current_network", "T\xc3\xa9l\xc3\xa9");
    core.setFact("roaming", "1");
    core.setFact("friendly", "0");
    core.setFact("user_select_profile", "true");
    EXPECT_EQ(identity.getIMSI(text), 0);
    EXPECT_EQ(text, U"00101");
    EXPECT_EQ(facade->getCurrentNetworkName(text), 0);
    EXPECT_EQ(text, U"T\u00e9l\u00e9");
    EXPECT_EQ(facade->getRoamingStatus(number), 0);
    EXPECT_EQ(number, 1);
    EXPECT_EQ(NR_EngineUtils::friendlyNetworkStatus(flag), 0);
    EXPECT_FALSE(flag);
    EXPECT_TRUE(NR_OpProfile().isUserSelectProfile());
    core.setFact("imsi", "");
    EXPECT_NE(identity.getIMSI(text), 0);
}

TEST(Fact, OnlyValuesThatAFactCanHaveAreKept)
{
    const TestStore store;
    CoreStore& core = CoreStore::instance();
    EXPECT_EQ(core.setFact("colour", "red"), STORE_NOT_FOUND);
    EXPECT_EQ(core.setFact("roaming", "far"), STORE_WRONG_TYPE);
    EXPECT_EQ(core.setFact("roaming", "1 "), STORE_WRONG_TYPE);
    EXPECT_EQ(core.setFact("roaming", "99999999999"), STORE_WRONG_TYPE);
    EXPECT_EQ(core.setFact("friendly", "yes"), STORE_WRONG_TYPE);
    EXPECT_EQ(core.setFact("model", "\xff"), STORE_WRONG_TYPE);
    std::string value;
    EXPECT_EQ(core.fact("roaming", value), STORE_NOT_FOUND);
}

TEST(Fact, ValuesOfAnotherTypeAreRefused)
{
    const TestStore store;
    OperatorPack pack;
    pack.device = {{"roaming", "1x"}, {"friendly", "yes"}};
    ASSERT_EQ(CoreStore::instance().installPack(pack), STORE_OK);
    int number = 4;
    bool flag = true;
    EXPECT_EQ(Vt_EventAndStatusFacade::instance()->getRoamingStatus(number), STORE_WRONG_TYPE);
    EXPECT_EQ(NR_EngineUtils::friendlyNetworkStatus(flag), STORE_WRONG_TYPE);
    EXPECT_EQ(number, 4);
    EXPECT_TRUE(flag);
}

TEST(Fact, NetworkAccessFollowsTheDownloadOption)
{
    const TestStore store;
    CoreStore& core = CoreStore::instance();
    EXPECT_FALSE(NR_EngineUtils::isNetworkAccessAllowed()) << "no option set";
    const struct
    {
        int option;
        const char* roaming;
        const char* friendly;
        bool allowed;
    } cases[] = {
        {0, "1", "false", true}, {1, "0", "false", true}, {1, "", "", true},       {1, "1", "false", false},
        {1, "1", "", false},     {1, "1", "true", true},  {2, "0", "true", false}, {3, "0", "true", false},
    };
    for (const auto& [option, roaming, friendly, allowed] : cases) {
        core.write(settingGroupNumber("VtCore.Service"), "DownloadOption", option);
        core.setFact("roaming", roaming);
        core.setFact("friendly", friendly);
        EXPECT_EQ(NR_EngineUtils::isNetworkAccessAllowed(), allowed) << option << roaming << friendly;
        EXPECT_EQ(NR_EngineUtils::isDownloadOptionNever(), option == 2);
    }
}

TEST(Fact, MacrosInLinksAreFilledOnce)
{
    const TestStore store;
    CoreStore& core = CoreStore::instance();
    core.setFact("model", "V 1/\xc3\xa4&@MSISDN@");
    core.setFact("msisdn", "+155");
    core.setFact("dpp_version", "2.0~a-b_c");
    const struct
    {
        std::string url, filled;
    } cases[] = {
        {"", ""},
        {"http://h/?a=1&b=%40", "http://h/?a=1&b=%40"},
        {"http://h/?m=@MSISDN@&n=@MSISDN@", "http://h/?m=%2B155&n=%2B155"},
        {"@DEVICE_MODEL@", "V%201%2F%C3%A4%26%40MSISDN%40"},
        {"@@DPP_VERSION@@", "@2.0~a-b_c@"},
        {"[@DP_CLIENT_SW_VERSION@]", "[]"},
        {"@msisdn@ @MSISDN", "@msisdn@ @MSISDN"},
        {"@DPP_@MSISDN@VERSION@", "@DPP_%2B155VERSION@"},
    };
    for (const auto& [url, filled] : cases) {
        std::string text = url;
        NR_EngineUtils::replacePatternsInURL(text);
        EXPECT_EQ(text, filled);
    }
}

TEST(Fact, TheContainerNamesChannelsThatTheCacheMayLack)
{
    const TestStore store(R"({"channels": [{"id": "b", "title": "News"}, {"id": "a"}]})");
    CoreStore& core = CoreStore::instance();
    core.addChannel({"c", "Sport"});
    core.addChannel({"b", "World"});
    NR_ContentCache& cache = *NR_ContentCache::getInstance();
    Container container;
    EXPECT_NE(cache.get(vtTypes::ID("container2"), container), 0);
    ASSERT_EQ(cache.get(vtTypes::ID("container1"), container), 0);
    ASSERT_EQ(container.children.size(), 3u);

    const struct
    {
        const char* id;
        vtTypes::String title;
    } channels[] = {{"b", U"World"}, {"a", U""}, {"c", U"Sport"}};
    for (size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(container.children[i].text(), channels[i].id);
        Channel channel(container.children[i]);
        EXPECT_EQ(cache.get(channel.id, channel) == 0, !channels[i].title.empty());
        EXPECT_EQ(channel.title, channels[i].title);
    }
    OperatorPack::Channel channel;
    EXPECT_EQ(core.channel("nowhere", channel), STORE_NOT_FOUND);
    EXPECT_EQ(core.channel("a", channel), STORE_OK);
    EXPECT_EQ(channel.id, "a");
    EXPECT_EQ(channel.title, std::nullopt);
    EXPECT_EQ(core.removeChannel("a"), STORE_OK);
    EXPECT_EQ(core.removeChannel("a"), STORE_NOT_FOUND);
}

TEST(Fact, ProfilesKeepTheOperatorsOrder)
{
    const TestStore store(R"({"profiles": [{"id": "z", "name": "Zed"},
                                           {"id": "a", "name": "\u00c4", "selectable": false}]})");
    NR_OpProfile profile;
    std::vector<vtTypes::String> ids = {U"old"};
    std::vector<bool> flags(5);
    EXPECT_EQ(profile.getSelectableProfiles(ids, flags), 0);
    EXPECT_EQ(ids, (std::vector<vtTypes::String>{U"z", U"a"}));
    EXPECT_EQ(flags, (std::vector<bool>{true, false}));
    vtTypes::String name = U"-";
    EXPECT_NE(profile.getOpLanguageString(U"x", name), 0);
    EXPECT_EQ(name, U"-");
    EXPECT_EQ(profile.getOpLanguageString(U"a", name), 0);
    EXPECT_EQ(name, U"\u00c4");

    EXPECT_EQ(profile.getCurrentProfile(), U"z");
    EXPECT_EQ(profile.installProfile(U"a"), 0);
    EXPECT_NE(profile.installProfile(U"x"), 0);
    EXPECT_EQ(profile.getCurrentProfile(), U"a");
    EXPECT_EQ(profile.installProfile(U"z"), 0);
    EXPECT_EQ(profile.getCurrentProfile(), U"z");
    CoreStore::instance().addProfile({"z", "Zulu", true});
    EXPECT_EQ(profile.getCurrentProfile(), U"z");
    CoreStore::instance().removeProfile("z");
    EXPECT_EQ(profile.getCurrentProfile(), U"");
}
