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

TEST(ClockRules, ShowsTheTimeTodayAndTheDateLater) {
    struct Case {
        const char* updated;
        const char* date;
        const char* today;
        const char* tip;
    };
    const Case cases[] = {
        {"", "", "5/3/2008", ""},
        {"5/3/2008 4:12:10 PM", "5/3/2008", "5/3/2008",
         "Skyvane Alerts (Last Updated: 4:12:10 PM)"},
        {"5/2/2008 4:12:10 PM", "5/2/2008", "5/3/2008",
         "Skyvane Alerts (Last Updated: 5/2/2008 @ 4:12:10 @ PM)"},
        {"3. 5. 2008 16:12", "3. 5. 2008", "3. 5. 2008", "Skyvane Alerts (Last Updated: 16:12)"},
        {"rubbish", "", "5/3/2008", "Skyvane Alerts (Last Updated: rubbish)"},
    };
    for (const Case& c : cases) EXPECT_EQ(TrayTip(c.updated, c.date, c.today), c.tip);
}

}  // namespace
}  // namespace tray
