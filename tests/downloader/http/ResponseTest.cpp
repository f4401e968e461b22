#include "downloader/http/Response.h"

#include <gtest/gtest.h>

#include "downloader/http/StatusCodes.h"

namespace http {
namespace {

TEST(StatusOfSystemError, IsNeitherSuccessNorAnHttpStatus) {
    EXPECT_EQ(StatusOfSystemError(12029), 12029);
    EXPECT_EQ(StatusOfSystemError(404), 100404);
    EXPECT_EQ(StatusOfSystemError(0x80090326), kWindowsErrorBase + 0x0326);
    EXPECT_EQ(StatusOfSystemError(0), kInternalError);
}

TEST(SecondsToCache, FollowsTheHeader) {
    for (const auto& [header, seconds] : {std::pair{"public, max-age=30, s-maxage=40", 30},
                                          {"Max-Age = 5", 5},
                                          {"", 0},
                                          {"max-age=99999999999999999999", 600},
                                          {"max-age=-5", 0},
                                          {"max-age=x", 0},
                                          {"no-store, max-age=30", 0},
                                          {"no-cache", 0}})
        EXPECT_EQ(SecondsToCache(header, 600), seconds) << header;
}

}  // namespace
}  // namespace http
