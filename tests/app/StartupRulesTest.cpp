#include "app/StartupRules.h"

#include <gtest/gtest.h>

namespace app {
namespace {

TEST(StartupRules, ReadsTheSwitchesAnywhere) {
    struct Case {
        const char* line;
        bool ini;
        bool defaultUser;
    };
    for (const Case& c :
         {Case{"", false, false}, Case{"-i", true, false}, Case{"-id", true, true},
          Case{"x -i", true, false}, Case{"-I", false, false}, Case{"semi-ideal", true, true}}) {
        EXPECT_EQ(ReadStoreSwitches(c.line).useIni, c.ini) << c.line;
        EXPECT_EQ(ReadStoreSwitches(c.line).defaultUser, c.defaultUser) << c.line;
    }
}

TEST(StartupRules, CountsRunsUpToTheEndOfSixteenBits) {
    EXPECT_EQ(NextRunCount("0"), "1");
    EXPECT_EQ(NextRunCount("32766"), "32767");
    for (const char* text : {"32767", "99999", "many", ""})
        EXPECT_EQ(NextRunCount(text), std::nullopt) << text;
}

TEST(StartupRules, TakesOnlyAUsableDoubleClickTime) {
    EXPECT_EQ(ClickInterval("500"), 500u);
    for (const char* text : {"", "fast", "0", "-1", "65536"})
        EXPECT_EQ(ClickInterval(text), std::nullopt) << text;
}

}  // namespace
}  // namespace app
