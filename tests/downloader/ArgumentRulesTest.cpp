#include "downloader/ArgumentRules.h"

#include <gtest/gtest.h>

#include "downloader/StatusCodes.h"

namespace downloader {
namespace {

TEST(SplitArgument, TakesTheFilesFromTheEnd) {
    const auto job = SplitArgument(R"(http://h/a|b?c=||d|C:\Te mp\d.tmp|C:\s.tmp)");
    ASSERT_TRUE(job);
    EXPECT_EQ(job->url, "http://h/a|b?c=||d");
    EXPECT_EQ(job->dataFile, R"(C:\Te mp\d.tmp)");
    EXPECT_EQ(job->statusFile, R"(C:\s.tmp)");
    for (const char* broken :
         {"", "u", "|", "u|d", "|d", "||", "|d|s", "u||s", "u|d|", "u|D.tmp|d.TMP"})
        EXPECT_FALSE(SplitArgument(broken)) << broken;
}

TEST(LimitSeconds, OnlyShortensTheLimit) {
    const struct {
        const char* text;
        int seconds;
    } cases[] = {{"1", 1},   {"007", 7}, {"60", 60}, {"61", 60},         {"0", 60},
                 {"-1", 60}, {"", 60},   {"5s", 60}, {"9999999999", 60}, {"4294967297", 60}};
    for (const auto& c : cases) EXPECT_EQ(LimitSeconds(c.text), c.seconds) << c.text;
}

TEST(StatusOfSystemError, NeverReadsAsSuccessOrAsAnHttpStatus) {
    EXPECT_EQ(StatusOfSystemError(12029), 12029);
    EXPECT_EQ(StatusOfSystemError(404), 100404);
    EXPECT_EQ(StatusOfSystemError(0x80090326), kWindowsErrorBase + 0x0326);
    EXPECT_EQ(StatusOfSystemError(0), kInternalError);
}

}  // namespace
}  // namespace downloader
