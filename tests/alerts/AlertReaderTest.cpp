#include <gtest/gtest.h>

#include "alerts/AlertFeed.h"
#include "tests/ScratchStore.h"

namespace alerts {
namespace {

class ParseAlertsTest : public tests::ScratchStore {};

TEST_F(ParseAlertsTest, StopsCountingAtTheEndOfSixteenBits) {
    const std::string document = WriteScratchFile(
        "<aws:weather xmlns:aws='http://a'><aws:alerts><aws:alert><aws:id>1</aws:id>"
        "<aws:html-msg-body>b</aws:html-msg-body></aws:alert></aws:alerts></aws:weather>");
    for (const auto& [before, added, after] :
         {std::tuple{"32767", 1, "32767"}, {"many", 0, "1"}, {"1", 0, "2"}}) {
        settings::WriteSetting("Alerts", "Count", before);
        EXPECT_EQ(ParseAlerts(document, "1"), added) << before;
        EXPECT_EQ(settings::ReadSetting("Alerts", "Count"), after) << before;
    }
    EXPECT_EQ(ParseAlerts("c:\\no\\such.xml", "1"), 0);
    EXPECT_EQ(settings::ReadSetting("Alerts", "Count"), "2");
}

}  // namespace
}  // namespace alerts
