#include <gtest/gtest.h>

#include "alerts/AlertReader.h"
#include "tests/ScratchStore.h"

namespace alerts {
namespace {

class AlertReaderTest : public tests::ScratchStore {
  protected:
    // The number of alerts that a document stores.
    static std::size_t Read(const std::string& document) {
        AlertReader reader(document, "1");
        while (!reader.ReadSome()) {
        }
        return reader.Identifiers().size();
    }
};

TEST_F(AlertReaderTest, StopsCountingAtTheEndOfSixteenBits) {
    const std::string document = WriteScratchFile(
        "<aws:weather xmlns:aws='http://a'><aws:alerts><aws:alert><aws:id>1</aws:id>"
        "<aws:html-msg-body>b</aws:html-msg-body></aws:alert></aws:alerts></aws:weather>");
    for (const auto& [before, after] : {std::pair{"32767", "32767"}, {"many", "1"}, {"1", "2"}}) {
        settings::WriteSetting("Alerts", "Count", before);
        EXPECT_EQ(Read(document), 1u) << before;
        EXPECT_EQ(settings::ReadSetting("Alerts", "Count"), after) << before;
    }
    EXPECT_EQ(Read("c:\\no\\such.xml"), 0u);
    EXPECT_EQ(settings::ReadSetting("Alerts", "Count"), "2");
}

}  // namespace
}  // namespace alerts
