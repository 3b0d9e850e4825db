#pragma once

#include "Dice.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>

inline int campaignSetting(const char* name, int otherwise)
{
    const char* value = std::getenv(name);
    return value ? std::atoi(value) : otherwise;
}

// Calls `test` with the dice of each case: `few` cases, `all` of them where VISTANE_CAMPAIGN is 1, or as many as
// VISTANE_CASES says. A failure names VISTANE_SEED and VISTANE_CASE, with which the case runs alone; so does the last
// line when a case crashes, or hangs for more than `limit` seconds.
template <class Test>
void runCampaign(int few, int all, unsigned limit, Test test)
{
    const int seed = campaignSetting("VISTANE_SEED", 1);
    const int only = campaignSetting("VISTANE_CASE", 0);
    const int count = campaignSetting("VISTANE_CASES", campaignSetting("VISTANE_CAMPAIGN", 0) ? all : few);
    const int last = only ? only : count;
    for (int number = std::max(1, only); number <= last; ++number) {
        const std::string name =
            "VISTANE_SEED=" + std::to_string(seed) + " VISTANE_CASE=" + std::to_string(number);
        SCOPED_TRACE(name);
        std::fprintf(stderr, "%s\n", name.c_str());
        alarm(limit);
        Dice dice(static_cast<uint64_t>(seed), static_cast<uint64_t>(number));
        test(dice);
    }
    alarm(0);
}
