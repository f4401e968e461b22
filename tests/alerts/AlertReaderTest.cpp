#include "alerts/AlertReader.h"

#include "downloader/feed/FeedXml.h"
#include "tests/ScratchStore.h"
#include "win/MessageLoop.h"

namespace alerts {
namespace {

class AlertReaderTest : public tests::ScratchStore {};

TEST_F(AlertReaderTest, FilterKeepsNotices) {
    settings::WriteSetting(settings::kAlertFilters, "tornado");
    settings::WriteSetting(settings::kShowFilteredWords, settings::kTrue);
    feed::AlertDocument document;
    for (const char* title : {"Place not covered", "Unreadable alert", "Flood Warning"})
        document.Add("id", title, "Text");
    AlertReader reader(WriteScratchFile(document.Finish()), "66044");
    while (!reader.ReadSome()) win::PumpOrWait(1);
    EXPECT_EQ(reader.Answer().alerts.size(), 2u);
    EXPECT_TRUE(reader.Identifiers().empty());
}

}  // namespace
}  // namespace alerts
