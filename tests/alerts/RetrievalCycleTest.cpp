#include "alerts/RetrievalCycle.h"

#include <gtest/gtest.h>

#include "alerts/SeenAlerts.h"
#include "tests/ScratchStore.h"
#include "win/Text.h"

namespace alerts {
namespace {

class RetrievalCycleTest : public tests::ScratchStore {};
INSTANTIATE_TEST_SUITE_P(EitherStore, RetrievalCycleTest,
                         testing::Values(settings::kUseIniStore, settings::kUseRegistryStore));

TEST_P(RetrievalCycleTest, SavesTheNewestIdentifiersThatTheStoreHolds) {
    Use(GetParam());
    std::vector<std::string> identifiers;
    for (int i = 100'000; i < 100'200; ++i) identifiers.push_back(win::Decimal(i));
    settings::State().oldAlerts = win::Join(identifiers, kBar);
    ASSERT_TRUE(RetrievalCycle().Continue());
    // Of 1399 characters 249 are dropped; 107 of these identifiers fit into 749.
    const std::string saved = settings::ReadSetting(settings::kOldAlerts);
    const bool isIni = GetParam() == settings::kUseIniStore;
    EXPECT_EQ(win::CountChars(saved), isIni ? 748u : 1150u);
    EXPECT_TRUE(saved.starts_with(isIni ? "100093" : "35")) << saved.substr(0, 20);
    EXPECT_TRUE(saved.ends_with("100199"));
}

}  // namespace
}  // namespace alerts
