#include "downloader/feed/FeedXml.h"

#include <gtest/gtest.h>

namespace feed {
namespace {

Place City(const char* name, const char* region, const char* country) {
    Place city{"g6295532", name, region, 473578, -85030};
    city.country = country;
    return city;
}

TEST(BuildLocationDocument, ListsTownsAndCities) {
    const std::string xml = BuildLocationDocument({{"62701", "Springfield", "Illinois", 0, 0},
                                                   City("Zürich (Kreis 3)", "", "Switzerland"),
                                                   City("London", "On|tario*", "Canada & more")});
    for (
        const char* location :
        {R"(cityname="Springfield" countryname="USA" statename="Illinois" zipcode="62701")",
         R"(cityname="Zürich [Kreis 3]" countryname="Switzerland" statename="" zipcode="g6295532")",
         R"(countryname="Canada &amp; more" statename="On tario , Canada &amp; more" zipcode="g)"})
        EXPECT_NE(xml.find(location), std::string::npos) << location << "\n" << xml;
}

TEST(BuildPlaceStationDocument, ListsThePlaceItself) {
    const std::string head(kXmlHead);
    const std::string tail(kXmlTail);
    EXPECT_EQ(BuildPlaceStationDocument(City("Zürich (Kreis 3)", "Zürich (ZH)", "Switzerland")),
              head +
                  R"(<aws:station id="g6295532" name="Zürich [Kreis 3]" city="Zürich [Kreis 3]" )" +
                  R"(state="Zürich [ZH], Switzerland" zipcode="g6295532" )" +
                  R"(station-type="Public alerts" latitude="47.3578" longitude="-8.503"/>)" + "\n" +
                  tail);
}

}  // namespace
}  // namespace feed
