#include "downloader/feed/Gazetteer.h"

#include <gtest/gtest.h>

namespace feed {
namespace {

using Texts = std::vector<std::string>;

std::string Number(std::int64_t number, int size) {
    std::string bytes;
    for (int i = 0; i < size; ++i) bytes += static_cast<char>(number >> (8 * i));
    return bytes;
}

// A small gazetteer, sorted as its format requires.
std::string SmallGazetteer() {
    const std::pair<const char*, const char*> states[] = {
        {"IL", "Illinois"}, {"MO", "Missouri"}, {"NY", "New York"}, {"PR", "Puerto Rico"}};
    struct Row {
        const char* name;
        int state;
        const char* code;
    };
    const Row rows[] = {{"Mayagüez", 3, "00680"},           {"New York", 2, "10001"},
                        {"O'Fallon", 1, "63366"},           {"St. Louis", 1, "63101"},
                        {"Springfield", 0, "62701"},        {"Springfield", 1, "65801"},
                        {"Springfield Center", 2, "13468"}, {"Winston-Salem", 0, "99999"}};
    std::string texts, stateTable, places, codes;
    const auto add = [&](const char* text) {
        const std::string offset = Number(static_cast<int>(texts.size()), 4);
        texts.append(text).push_back('\0');
        return offset;
    };
    for (const auto& [code, name] : states) stateTable += code + Number(0, 2) + add(name);
    const int order[] = {0, 1, 5, 4, 3, 6, 2, 7};  // the index of each place's ZIP code
    for (int i = 0; i < 8; ++i)
        places += add(rows[i].name) + Number(rows[i].state, 1) + Number(order[i], 3);
    for (const int place : {0, 1, 6, 4, 3, 2, 5, 7})
        codes += rows[place].code + Number(place, 3) + Number(401234, 4) +
                 Number(-891000 - place, 4) + Number(25, 1);
    return "SVPLACE2" + Number(4, 4) + Number(8, 4) + Number(8, 4) +
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
        {" sPRINGfield ", all},
        {"spring", all},
        {"Springfield, IL", {all[0]}},
        {"Springfield Missouri", {all[1]}},
        {"Springfield, New", {all[2]}},
        {"Springfield, Ontario", {}},
        {"Saint Louis", {"63101 St. Louis, Missouri"}},
        {"OFALLON", {"63366 O'Fallon, Missouri"}},
        {"o\xE2\x80\x99 fallon, mo", {"63366 O'Fallon, Missouri"}},
        {"New York City", {"10001 New York, New York"}},
        {"N.Y.C., NY", {"10001 New York, New York"}},
        {"winston salem", {"99999 Winston-Salem, Illinois"}},
        {"MAYAGÜEZ, pr", {"00680 Mayagüez, Puerto Rico"}},
        {"New York", {"10001 New York, New York"}},
        {"", {}},
        {" . ", {}},
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
        EXPECT_EQ(place->latitude, 401234);
        EXPECT_EQ(place->longitude, -891004);
        EXPECT_EQ(place->reach, 6.25);
    }
    for (const char* code : {"", "62700", "999999", "6270", "a"})
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
