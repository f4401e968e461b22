#include "search/SearchRequestRules.h"

#include <gtest/gtest.h>

#include "search/MapPageRules.h"

namespace search {
namespace {

TEST(SearchRequestRules, TakesAPlaceApart) {
    struct Case {
        const char* selected;
        int byZipCode;  // -1: no place
        const char* code;
    };
    for (const Case& c : {Case{"066044", 1, "66044"},
                          {"164321", 0, "64321"},
                          {"0", 1, ""},
                          {"266044", 1, "66044"},
                          {"", -1, ""},
                          {"x1", -1, ""},
                          {"é1", -1, ""}}) {
        const auto place = PlaceOf(c.selected);
        ASSERT_EQ(place.has_value(), c.byZipCode >= 0) << c.selected;
        if (!place) continue;
        EXPECT_EQ(place->byZipCode, c.byZipCode == 1) << c.selected;
        EXPECT_EQ(place->code, c.code) << c.selected;
    }
    EXPECT_EQ(StationQuery({"64321", false}), "&requesttype=1&CityCode=64321");
    EXPECT_EQ(IsByZipCode("TRUE"), true);
    EXPECT_EQ(IsByZipCode("00"), false);
    EXPECT_EQ(IsByZipCode("city"), std::nullopt);
}

TEST(MapPageRules, PutsTheDocumentIntoEveryPlace) {
    EXPECT_EQ(MapPage("a[XML]b[XML]", "<x y=\"1\"/>\r\n\n\r\r\n[XML]\\"),
              "a<x y=\\\"1\\\"/>\n\r[XML]\\b<x y=\\\"1\\\"/>\n\r[XML]\\");
    EXPECT_EQ(MapPage("[xml]", "x"), "[xml]");
}

TEST(MapPageRules, CentersOnPlainCoordinatesOnly) {
    EXPECT_TRUE(CenterMarkup("", "38° 58.2 N"));
    for (const char* hostile : {"');alert(1);('", "\\", "&#39;", "1\"", "<b>", "1\n2"}) {
        EXPECT_FALSE(CenterMarkup(hostile, "1")) << hostile;
        EXPECT_FALSE(CenterMarkup("1", hostile)) << hostile;
    }
}

}  // namespace
}  // namespace search
