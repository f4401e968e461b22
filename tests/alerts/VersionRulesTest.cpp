#include "alerts/VersionRules.h"

#include <gtest/gtest.h>

namespace alerts {
namespace {

TEST(VersionRules, ComparesTheDigitsAsOneNumber) {
    EXPECT_TRUE(IsNewerVersion("1.2.10", "1.3.0"));
    EXPECT_FALSE(IsNewerVersion("9.9.9.9.9", "1.0.2"));
}

TEST(VersionRules, TellsAVersionFromAnErrorPage) {
    EXPECT_FALSE(IsVersionTooLong("  " + std::string(20, '1') + "  "));
    EXPECT_TRUE(IsVersionTooLong(std::string(21, '1')));
}

}  // namespace
}  // namespace alerts
