#include "downloader/nws/Stations.h"

#include <gtest/gtest.h>

#include "tests/downloader/nws/Answers.h"

namespace nws {
namespace {

TEST(BuildStationDocument, ReadsRecordedAnswers) {
    const feed::Place place{"10007", "New \"York\"", "New York", 407128, -740060};
    const auto xml = BuildStationDocument(Recorded("stations-nyc-41.json"), place);
    ASSERT_TRUE(xml);
    const std::string first =
        "<aws:station id=\"KNYC\" name=\"New York City, Central Park\" city=\"New "
        "&quot;York&quot;\" "
        "state=\"New York\" zipcode=\"10007\" station-type=\"NWS\" latitude=\"40.7833\" "
        "longitude=\"-73.9667\"/>";
    EXPECT_NE(xml->find(first), std::string::npos) << *xml;
    EXPECT_LT(xml->find("KNYC"), xml->find("KLGA"));
    for (const char* name : {"problem-outside-us.json", "point-nyc.json"})
        EXPECT_FALSE(BuildStationDocument(Recorded(name), place)) << name;
}

std::string Station(const char* id, const char* name, const char* coordinates) {
    return std::string(R"({"geometry":{"coordinates":)") + coordinates +
           R"(},"properties":{"name":)" + name + R"(,"stationIdentifier":)" + id + "}}";
}

TEST(BuildStationDocument, ListsUsableStationsNearestFirst) {
    const std::string json = Answer(
        {Station("\"FAR\"", "\"Far\"", "[179.9,51.9]"), Station("null", "\"None\"", "[1,2]"),
         Station("\"NIL\"", "\"Nowhere\"", "null"), Station("\"BAD\"", "\"Bad\"", "[1e300,2]"),
         Station("\"NEAR\"", "\"A (B)|***<\"", "[-179.99,51.9]"),
         Station("\"BARE\"", "null", "[0,0]")});
    const auto xml = BuildStationDocument(json, {"99546", "Adak", "Alaska", 519000, -1799900});
    ASSERT_TRUE(xml);
    const std::size_t near = xml->find("id=\"NEAR\" name=\"A [B]    &lt;\"");
    const std::size_t far = xml->find("id=\"FAR\"");
    const std::size_t bare = xml->find("id=\"BARE\" name=\"BARE\"");
    EXPECT_LT(near, far);
    EXPECT_LT(far, bare);
    EXPECT_NE(bare, std::string::npos);
    EXPECT_EQ(xml->find("NIL"), std::string::npos);
    EXPECT_EQ(xml->find("BAD"), std::string::npos);
}

}  // namespace
}  // namespace nws
