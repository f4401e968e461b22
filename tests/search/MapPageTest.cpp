#include "search/MapPage.h"

#include <gtest/gtest.h>

namespace search {
namespace {

TEST(MapPage, PutsTheDocumentIntoEveryPlace) {
    EXPECT_EQ(MakeMapPage("[xml]a[XML]b[XML]", "<x y=\"1\"/>\r\n\n\r\r\n[XML]\\"),
              "[xml]a<x y=\\\"1\\\"/>\n\r[XML]\\b<x y=\\\"1\\\"/>\n\r[XML]\\");
}

TEST(MapPage, CentersOnlyOnHarmlessCoordinates) {
    EXPECT_TRUE(MakeCenterMarkup("", "38° 58.2 N"));
    for (const char* hostile : {"');alert(1);('", "\\", "&#39;", "1\"", "<b>", "1\n2"}) {
        EXPECT_FALSE(MakeCenterMarkup(hostile, "1")) << hostile;
        EXPECT_FALSE(MakeCenterMarkup("1", hostile)) << hostile;
    }
}

}  // namespace
}  // namespace search
