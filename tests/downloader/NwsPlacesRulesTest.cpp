#include "downloader/NwsPlacesRules.h"

#include <gtest/gtest.h>

#include "downloader/NwsRequestRules.h"
#include "downloader/NwsStationsRules.h"
#include "tests/downloader/Nws.h"

using namespace downloader;

namespace {

using Texts = std::vector<std::string>;

std::string Number(std::int64_t number, int size) {
    std::string bytes;
    for (int i = 0; i < size; ++i) bytes += static_cast<char>(number >> (8 * i));
    return bytes;
}

// A small gazetteer, in the order that its places must have.
std::string SmallGazetteer() {
    const std::pair<const char*, const char*> states[] = {
        {"IL", "Illinois"}, {"MO", "Missouri"}, {"NY", "New York"}, {"PR", "Puerto Rico"}};
    struct Row {
        const char* name;
        int state;
        const char* code;
    };
    const Row rows[] = {{"Mayagüez", 3, "00680"},    {"New York", 2, "10001"},
                        {"O'Fallon", 1, "63366"},    {"Springfield", 0, "62701"},
                        {"Springfield", 1, "65801"}, {"Springfield Center", 2, "13468"},
                        {"Saint Louis", 1, "63101"}, {"Winston-Salem", 0, "99999"}};
    std::string texts, stateTable, places, codes;
    const auto add = [&](const char* text) {
        const std::string offset = Number(static_cast<int>(texts.size()), 4);
        texts.append(text).push_back('\0');
        return offset;
    };
    for (const auto& [code, name] : states) stateTable += code + Number(0, 2) + add(name);
    const int order[] = {0, 1, 5, 3, 6, 2, 4, 7};  // the index of each place's ZIP code
    for (int i = 0; i < 8; ++i)
        places += add(rows[i].name) + Number(rows[i].state, 1) + Number(order[i], 3);
    for (const int place : {0, 1, 5, 3, 6, 2, 4, 7})
        codes +=
            rows[place].code + Number(place, 3) + Number(401234, 4) + Number(-891000 - place, 4);
    return "SVPLACE1" + Number(4, 4) + Number(8, 4) + Number(8, 4) +
           Number(static_cast<int>(texts.size()), 4) + stateTable + places + codes + texts;
}

TEST(Gazetteer, FindsPlacesByName) {
    const std::string bytes = SmallGazetteer();
    const auto gazetteer = OpenGazetteer(bytes);
    ASSERT_TRUE(gazetteer);
    struct Case {
        const char* text;
        Texts found;
    };
    const Texts all = {"62701 Springfield, Illinois", "65801 Springfield, Missouri",
                       "13468 Springfield Center, New York"};
    const Case cases[] = {
        {"Springfield", all},
        {"  sPRINGfield ", all},
        {"spring", all},
        {"Springfield, IL", {all[0]}},
        {"springfield,il", {all[0]}},
        {"Springfield IL", {all[0]}},
        {"Springfield Missouri", {all[1]}},
        {"Springfield, New", {all[2]}},
        {"Springfield, I", {all[0]}},
        {"Springfield, Ontario", {}},
        {"Springfield,", all},
        {"St. Louis", {"63101 Saint Louis, Missouri"}},
        {"saint louis", {"63101 Saint Louis, Missouri"}},
        {"OFALLON", {"63366 O'Fallon, Missouri"}},
        {"winston salem", {"99999 Winston-Salem, Illinois"}},
        {"mayaguez", {"00680 Mayagüez, Puerto Rico"}},
        {"MAYAGÜEZ, pr", {"00680 Mayagüez, Puerto Rico"}},
        {"New York", {"10001 New York, New York"}},
        {"Paris", {}},
        {"", {}},
        {" . ", {}},
        {", IL", {}},
    };
    for (const Case& c : cases) {
        Texts found;
        for (const Place& place : FindPlaces(*gazetteer, c.text, 50))
            found.push_back(std::string(place.zipCode) + " " + std::string(place.name) + ", " +
                            std::string(place.state));
        EXPECT_EQ(found, c.found) << c.text;
    }
    EXPECT_EQ(FindPlaces(*gazetteer, "s", 2).size(), 2u);
}

TEST(Gazetteer, FindsZipCodes) {
    const std::string bytes = SmallGazetteer();
    const auto gazetteer = OpenGazetteer(bytes);
    ASSERT_TRUE(gazetteer);
    for (const char* code : {"62701", "62701-1234"}) {
        const auto place = FindZipCode(*gazetteer, code);
        ASSERT_TRUE(place) << code;
        EXPECT_EQ(place->name, "Springfield");
        EXPECT_EQ(AlertsAddress("https://h", *place),
                  "https://h/alerts/active?status=actual&point=40.1234,-89.1003");
    }
    EXPECT_EQ(PointAddress("o", *FindZipCode(*gazetteer, "00680")), "o/points/40.1234,-89.1");
    for (const char* code : {"", "0", "62700", "99998", "999999", "6270", "627011234", "a"})
        EXPECT_FALSE(FindZipCode(*gazetteer, code)) << code;
}

TEST(Gazetteer, SurvivesDamage) {
    const std::string whole = SmallGazetteer();
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_FALSE(OpenGazetteer(std::string_view(whole).substr(0, length)));
    for (std::size_t at = 0; at < whole.size(); ++at) {
        std::string damaged = whole;
        damaged[at] = '\xFF';
        if (const auto gazetteer = OpenGazetteer(damaged)) {
            EXPECT_LE(FindPlaces(*gazetteer, "s", 50).size(), 50u);
            FindZipCode(*gazetteer, "62701");
        }
    }
}

TEST(DegreesText, HasNoZerosAtItsEnd) {
    for (const auto& [degrees, text] : {std::pair{-740060, "-74.006"},
                                        {407128, "40.7128"},
                                        {0, "0"},
                                        {-5, "-0.0005"},
                                        {1800000, "180"}})
        EXPECT_EQ(DegreesText(degrees), text);
}

TEST(Stations, ReadsRecordedAnswers) {
    const Place place{"10007", "New \"York\"", "New York", 407128, -740060};
    EXPECT_EQ(StationsPath(Recorded("point-nyc.json")), "/gridpoints/OKX/33,35/stations");
    const auto xml = StationsXml(Recorded("stations-nyc-41.json"), place);
    ASSERT_TRUE(xml);
    const std::string first =
        "<aws:station id=\"KNYC\" name=\"New York City, Central Park\" city=\"New "
        "&quot;York&quot;\" "
        "state=\"New York\" zipcode=\"10007\" station-type=\"NWS\" latitude=\"40.7833\" "
        "longitude=\"-73.9667\"/>";
    EXPECT_NE(xml->find(first), std::string::npos) << *xml;
    EXPECT_LT(xml->find("KNYC"), xml->find("KLGA"));
    for (const char* name : {"problem-outside-us.json", "point-nyc.json"})
        EXPECT_FALSE(StationsXml(Recorded(name), place)) << name;
    EXPECT_FALSE(StationsPath(Recorded("problem-outside-us.json")));
}

std::string Station(const char* id, const char* name, const char* coordinates) {
    return std::string(R"({"geometry":{"coordinates":)") + coordinates +
           R"(},"properties":{"name":)" + name + R"(,"stationIdentifier":)" + id + "}}";
}

TEST(Stations, AreUsableAndNearestFirst) {
    const std::string json = Answer(
        {Station("\"FAR\"", "\"Far\"", "[179.9,51.9]"), Station("null", "\"None\"", "[1,2]"),
         Station("\"NIL\"", "\"Nowhere\"", "null"), Station("\"BAD\"", "\"Bad\"", "[1e300,2]"),
         Station("\"NEAR\"", "\"A (B)|***<\"", "[-179.99,51.9]"),
         Station("\"BARE\"", "null", "[0,0]")});
    const auto xml = StationsXml(json, {"99546", "Adak", "Alaska", 519000, -1799900});
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

TEST(StationsPath, StaysOnTheServerAsked) {
    for (const auto& [url, path] : {std::pair{"https://api.weather.gov/gridpoints/AFC/1,2/stations",
                                              "/gridpoints/AFC/1,2/stations"},
                                    {"https://elsewhere.example/x", "/x"},
                                    {"https://h", ""},
                                    {"/x", ""},
                                    {"https://h/x?y", ""},
                                    {"https://h/x y", ""},
                                    {"https://h/x\\r\\nA: b", ""}})
        EXPECT_EQ(
            StationsPath(std::string(R"({"properties":{"observationStations":")") + url + "\"}}")
                .value_or(""),
            path)
            << url;
}

}  // namespace
