#include "tray/TrayTip.h"

#include <gtest/gtest.h>

namespace tray {
namespace {

TEST(TrayTip, AcceptsDatesOfAnyFormat) {
    EXPECT_EQ(TrayTip("3. 5. 2008 16:12", "3. 5. 2008", "3. 5. 2008"),
              "Skyvane Alerts (Last Updated: 16:12)");
    EXPECT_EQ(TrayTip("rubbish", "", "5/3/2008"), "Skyvane Alerts (Last Updated: rubbish)");
}

}  // namespace
}  // namespace tray
