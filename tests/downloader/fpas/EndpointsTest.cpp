#include "downloader/fpas/Endpoints.h"

#include <gtest/gtest.h>

namespace fpas {
namespace {

constexpr char kFirst[] = "0f8fad5b-d9cb-469f-a165-70867728950e";
constexpr char kSecond[] = "7C9E6679-7425-40DE-944B-E07FC1F90AE7";

TEST(AreaAddress, StaysWithinTheWorld) {
    for (const auto& [latitude, longitude, query] :
         {std::tuple{473'667, 85'500, "min_lat=47.3567&max_lat=47.3767&min_lon=8.54&max_lon=8.56"},
          {-900'000, 1'800'000, "min_lat=-90&max_lat=-89.99&min_lon=179.99&max_lon=180"},
          {899'950, -1'799'999, "min_lat=89.985&max_lat=90&min_lon=-180&max_lon=-179.9899"},
          {INT_MAX, INT_MIN, "min_lat=89.99&max_lat=90&min_lon=-180&max_lon=-179.99"}}) {
        feed::Place place;
        place.latitude = latitude;
        place.longitude = longitude;
        EXPECT_EQ(AreaAddress("https://h", place), std::string("https://h/alert/area?") + query);
    }
}

TEST(ReadIdentifiers, AcceptsOnlyACompleteListOfUuids) {
    const auto quoted = [](std::string text) { return "\"" + text + "\""; };
    const std::string first = quoted(kFirst), second = quoted(kSecond);
    EXPECT_EQ(ReadIdentifiers("[]"), std::vector<std::string>());
    EXPECT_EQ(ReadIdentifiers("\xEF\xBB\xBF [" + second + ", " + first + "," + second + "]\n"),
              (std::vector<std::string>{kSecond, kFirst}));
    for (const std::string& wrong :
         {std::string(), std::string("{}"), first, "[" + first, "[" + first + "]]",
          "[[" + first + "]]", "{\"a\":[" + first + "]}", "[" + first + ",null]",
          "[" + first + ",1]", "[" + quoted(std::string(kFirst) + "0") + "]",
          "[" + quoted("../" + std::string(33, '0')) + "]",
          "[" + quoted(std::string(36, '-')) + "]"})
        EXPECT_EQ(ReadIdentifiers(wrong), std::nullopt) << wrong;
}

}  // namespace
}  // namespace fpas
