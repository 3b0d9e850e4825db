#include "CoreStore.h"
#include "NR_EngineUtils.h"
#include "TestStore.h"
#include "Vt_EventAndStatusFacade.h"
#include "Vt_RkEventStatusAdapter.h"

#include <gtest/gtest.h>

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
    EXPECT_EQ(identity.getIMSI(text), 0);
    EXPECT_EQ(text, U"T\u00e9l");
    EXPECT_NE(identity.getMSISDN(text), 0);
    EXPECT_EQ(NR_EngineUtils::friendlyNetworkStatus(flag), 0);
    EXPECT_FALSE(flag);

    const std::pair<const char*, const char*> refused[] = {{"roaming", "far"},
                                                           {"roaming", "1 "},
                                                           {"roaming", "99999999999"},
                                                           {"friendly", "yes"},
                                                           {"model", "\xff"}};
    for (const auto& [name, value] : refused)
        EXPECT_EQ(core.setFact(name, value), STORE_WRONG_TYPE) << name << value;
}

TEST(Fact, MacrosInLinksAreFilledOnce)
{
    const TestStore store;
    CoreStore& core = CoreStore::instance();
    core.setFact("model", "V 1/\xc3\xa4&@MSISDN@");
    core.setFact("msisdn", "+155");
    core.setFact("dpp_version", "2.0~a-b_c");
    const std::pair<std::string, const char*> cases[] = {
        {"http://h/?a=1&b=%40", "http://h/?a=1&b=%40"},
        {"http://h/?m=@MSISDN@&n=@MSISDN@", "http://h/?m=%2B155&n=%2B155"},
        {"@DEVICE_MODEL@", "V%201%2F%C3%A4%26%40MSISDN%40"},
        {"@@DPP_VERSION@@", "@2.0~a-b_c@"},
        {"[@DP_CLIENT_SW_VERSION@]", "[]"},
        {"@msisdn@ @MSISDN", "@msisdn@ @MSISDN"},
        {"@DPP_@MSISDN@VERSION@", "@DPP_%2B155VERSION@"},
    };
    for (auto [url, filled] : cases) {
        NR_EngineUtils::replacePatternsInURL(url);
        EXPECT_EQ(url, filled);
    }
}
