#include "tray/ClockRules.h"

#include <gtest/gtest.h>

namespace tray {
namespace {

TEST(ClockRules, MapsIntervalNames) {
    EXPECT_EQ(IntervalMinutes("Every 5 minutes"), 5);
    EXPECT_EQ(IntervalMinutes("Every hour"), 60);
    EXPECT_EQ(IntervalMinutes("Every 5 hours"), 300);
    for (const char* name : {"Never", "", "every 5 minutes"}) EXPECT_EQ(IntervalMinutes(name), 0);
}

TEST(ClockRules, ShowsDatesOfAnyForm) {
    EXPECT_EQ(TrayTip("3. 5. 2008 16:12", "3. 5. 2008", "3. 5. 2008"),
              "Skyvane Alerts (Last Updated: 16:12)");
    EXPECT_EQ(TrayTip("rubbish", "", "5/3/2008"), "Skyvane Alerts (Last Updated: rubbish)");
}

}  // namespace
}  // namespace tray
