#include "downloader/nws/Zones.h"

#include <gtest/gtest.h>

#include "tests/downloader/nws/Answers.h"

namespace nws {
namespace {

TEST(Zones, ComeFromTheAnswerAboutAPoint) {
    EXPECT_EQ(ReadPointZones(Recorded("point-nyc.json")), (ZoneIds{"NYC061", "NYZ072", "NYZ212"}));
    EXPECT_EQ(ReadPointZones(R"({"properties":{"county":"https://h/zones/x?y=KSC045&z"}})"),
              ZoneIds{});
    EXPECT_FALSE(ReadPointZones(Recorded("problem-outside-us.json")));
    EXPECT_FALSE(ReadPointZones(R"({"properties":{"county":")"));

    const PlaceZones zones{{"KSC045"}, {"KSC045", "KSZ040"}};
    const auto known = UnpackZones(PackZones(zones));
    ASSERT_TRUE(known);
    EXPECT_EQ(known->own, zones.own);
    EXPECT_EQ(known->all, zones.all);
    for (const char* text : {"", ";", "KSC045", "KSC045;KSC045,x", "KSC045&a=b;KSC045"})
        EXPECT_FALSE(UnpackZones(text)) << text;
}

TEST(EdgesOf, LieAtTheReach) {
    const auto edges = EdgesOf({"", "", "", 600'000, 1'799'990, 11.1195});
    const std::pair<int, int> kExpected[] = {
        {601'000, 1'799'990}, {600'000, -1'798'010}, {599'000, 1'799'990}, {600'000, 1'797'990}};
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(std::pair(edges[i].latitude, edges[i].longitude), kExpected[i]) << i;
}

}  // namespace
}  // namespace nws
