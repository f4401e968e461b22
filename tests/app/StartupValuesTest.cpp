#include "app/StartupValues.h"

#include <gtest/gtest.h>

namespace app {
namespace {

TEST(StartupValues, FindsSwitchesAnywhere) {
    EXPECT_TRUE(ReadStoreSwitches("x -i").useIni);
    EXPECT_FALSE(ReadStoreSwitches("x -i").defaultUser);
    EXPECT_TRUE(ReadStoreSwitches("semi-ideal").defaultUser);
    EXPECT_FALSE(ReadStoreSwitches("-I").useIni);
}

TEST(StartupValues, CountsRunsUpTo32767) {
    EXPECT_EQ(NextRunCount("0"), "1");
    EXPECT_EQ(NextRunCount("32766"), "32767");
    for (const char* text : {"32767", "99999", "many", ""})
        EXPECT_EQ(NextRunCount(text), std::nullopt) << text;
}

TEST(StartupValues, AcceptsDoubleClickTimesInRange) {
    EXPECT_EQ(ClickInterval("500"), 500u);
    for (const char* text : {"", "fast", "0", "-1", "65536"})
        EXPECT_EQ(ClickInterval(text), std::nullopt) << text;
}

}  // namespace
}  // namespace app
