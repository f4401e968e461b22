#include "downloader/feed/Gazetteer.h"

#include <gtest/gtest.h>

#include "SmallGazetteer.h"
#include "downloader/feed/PlaceSearch.h"

namespace feed {
namespace {

TEST(Gazetteer, FindsZipCodes) {
    const std::string bytes = SmallGazetteer();
    const auto gazetteer = OpenGazetteer(bytes);
    ASSERT_TRUE(gazetteer);
    for (const char* code : {"62701", "62701-1234"}) {
        const auto place = FindZipCode(*gazetteer, code);
        ASSERT_TRUE(place) << code;
        EXPECT_EQ(place->code, "62701");
        EXPECT_EQ(place->name, "Springfield");
        EXPECT_EQ(place->latitude, 401234);
        EXPECT_EQ(place->longitude, -891005);
        EXPECT_EQ(place->reach, 6.25);
    }
    EXPECT_EQ(FindZipCode(*gazetteer, "00680")->code, "00680");
    for (const char* code : {"", "62700", "999999", "6270", "680", "000680", "a", "g8", "62701x"})
        EXPECT_FALSE(FindZipCode(*gazetteer, code)) << code;
}

TEST(Gazetteer, FindsCities) {
    const std::string bytes = SmallGazetteer();
    const auto gazetteer = OpenGazetteer(bytes);
    ASSERT_TRUE(gazetteer);
    struct Case {
        const char* code;
        const char* name;
        const char* area;
    };
    const Case cases[] = {{"g8", "Springfield", "United Kingdom"},
                          {"g2643743", "London", "United Kingdom"},
                          {"g6058560", "London", "Ontario, Canada"},
                          {"g6295532", "Zürich (Kreis 3)", "Switzerland"}};
    for (const auto& [code, name, area] : cases) {
        const auto place = FindCity(*gazetteer, code);
        ASSERT_TRUE(place) << code;
        EXPECT_EQ(place->code, code);
        EXPECT_EQ(place->name, name);
        EXPECT_EQ(AreaOf(*place), area);
        EXPECT_EQ(place->latitude, 473667);
        EXPECT_EQ(place->longitude, -85500);
    }
    for (const char* code : {"", "g", "g9", "8", "G8", "g8x", "g99999999999999999999", "g-8"})
        EXPECT_FALSE(FindCity(*gazetteer, code)) << code;
}

TEST(Gazetteer, SurvivesDamage) {
    const std::string whole = SmallGazetteer();
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_FALSE(OpenGazetteer(std::string_view(whole).substr(0, length)));
    for (std::size_t at = 0; at < whole.size(); ++at) {
        std::string damaged = whole;
        damaged[at] = '\xFF';
        if (const auto gazetteer = OpenGazetteer(damaged)) {
            for (const char* text : {"s, ontario", "z", "londres"})
                EXPECT_LE(FindPlaces(*gazetteer, text, 50, Scope::World).size(), 50u);
            FindZipCode(*gazetteer, "62701");
            FindCity(*gazetteer, "g8");
        }
    }
}

TEST(FormatDegrees, OmitsTrailingZeros) {
    for (const auto& [degrees, text] : {std::pair{-740060, "-74.006"},
                                        {407128, "40.7128"},
                                        {0, "0"},
                                        {-5, "-0.0005"},
                                        {1800000, "180"}})
        EXPECT_EQ(FormatDegrees(degrees), text);
}

}  // namespace
}  // namespace feed
