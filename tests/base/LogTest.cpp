#include "Log.h"
#include "LogCapture.h"

#include <gtest/gtest.h>

namespace {

const Log logger("Module");

TEST(Log, EveryLineEndsOnce)
{
    const LogCapture log;
    logger(7, "plain %d", 1);
    logger(7, "ended %s\n", "x");
    logger(7, "%s", "ended by its argument\n");
    logger(7, "%s", std::string(100000, 'y').c_str());
    logger({3, 70}, "at a line of its own");
    EXPECT_EQ(log.lines(), (std::vector<std::string>{
                               "(Module:*)[~~~~vistane~~~~]plain 1",
                               "(Module:*)[~~~~vistane~~~~]ended x",
                               "(Module:*)[~~~~vistane~~~~]ended by its argument",
                               "(Module:*)[~~~~vistane~~~~]" + std::string(100000, 'y'),
                               "(Module:*)[~~~~vistane~~~~]at a line of its own",
                           }));
    EXPECT_NE(log.text().find("(Module:70)"), std::string::npos);
}

TEST(Log, LevelsAboveSevenAreDropped)
{
    const LogCapture log;
    for (int level = 0; level < 10; ++level)
        logger(level, "%d", level);
    ASSERT_EQ(log.lines().size(), 8u);
    EXPECT_TRUE(log.lines().back().ends_with("]7"));
}

} // namespace
