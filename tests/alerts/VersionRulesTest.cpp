#include "alerts/VersionRules.h"

#include <gtest/gtest.h>

namespace alerts {
namespace {

TEST(VersionRules, ComparesTheDigitsAsOneNumber) {
    struct Case {
        const char* offered;
        const char* running;
        bool newer;
    };
    const Case cases[] = {
        {"1.3.0", "1.2.9", true},      {"1.2.10", "1.3.0", true},    {"1.0.2", "1.0.2", false},
        {"1.0.1", "1.0.2", false},     {"1.0.3\r\n", "1.0.2", true}, {"beta", "1.0.2", false},
        {"9.9.9.9.9", "1.0.2", false}, {"", "1.0.2", false},         {"1.0.2", "", true}};
    for (const Case& c : cases)
        EXPECT_EQ(IsNewerVersion(c.offered, c.running), c.newer) << c.offered << c.running;
}

TEST(VersionRules, TellsAVersionFromAnErrorPage) {
    EXPECT_FALSE(IsVersionTooLong("  " + std::string(20, '1') + "  "));
    EXPECT_TRUE(IsVersionTooLong(std::string(21, '1')));
    EXPECT_FALSE(IsVersionTooLong(""));
    for (const char* text : {"1.0.3", " 1.0.3\r\n", "1.0.3 \n"})
        EXPECT_EQ(OfferedVersion(text), "1.0.3");
}

}  // namespace
}  // namespace alerts
