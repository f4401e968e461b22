#include "downloader/feed/IsoTime.h"

#include <gtest/gtest.h>

namespace feed {
namespace {

TEST(ParseTime, ReadsTimesOfAnyZone) {
    EXPECT_EQ(ParseTime("1970-01-01T00:00:00Z"), 0);
    EXPECT_EQ(ParseTime("2024-02-29T23:59:59-07:00"), 1709276399);
    EXPECT_EQ(ParseTime("2026-12-31T24:00:00.250+05:30"), 1798741800);
    for (const char* text : {"", "2024-02-29", "2024-02-29T23:59:59", "2024-13-01T00:00:00Z",
                             "2024-02-29T23:59:59-7:00", "2024-02-29 23:59:59Z"})
        EXPECT_FALSE(ParseTime(text)) << text;
    EXPECT_EQ(YearOf(1798761599), 2026);
    EXPECT_EQ(YearOf(1798761600), 2027);
}

}  // namespace
}  // namespace feed
