#include "UApplication.h"

#include <gtest/gtest.h>

// The main() of every test program with a screen.
int main(int argc, char** argv)
{
    UApplication application(argc, argv, UApplication::GuiClient);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
