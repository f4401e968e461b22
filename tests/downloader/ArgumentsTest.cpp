#include "downloader/Arguments.h"

#include <gtest/gtest.h>

namespace downloader {
namespace {

TEST(ParseArgument, TakesTheFilesFromTheEnd) {
    const auto job = ParseArgument(R"(http://h/a|b?c=||d|C:\Te mp\d.tmp|C:\s.tmp)");
    ASSERT_TRUE(job);
    EXPECT_EQ(job->url, "http://h/a|b?c=||d");
    EXPECT_EQ(job->dataFile, R"(C:\Te mp\d.tmp)");
    EXPECT_EQ(job->statusFile, R"(C:\s.tmp)");
    for (const char* invalid : {"", "u", "u|d", "||", "|d|s", "u||s", "u|d|", "u|D.tmp|d.TMP"})
        EXPECT_FALSE(ParseArgument(invalid)) << invalid;
}

TEST(ParseTimeLimit, OnlyShortensTheLimit) {
    for (const auto& [text, seconds] : {std::pair{"1", 1},
                                        {"007", 7},
                                        {"61", 60},
                                        {"0", 60},
                                        {"-1", 60},
                                        {"", 60},
                                        {"5s", 60},
                                        {"4294967297", 60}})
        EXPECT_EQ(ParseTimeLimit(text), seconds) << text;
}

}  // namespace
}  // namespace downloader
