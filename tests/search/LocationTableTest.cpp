#include "search/LocationTable.h"

#include <gtest/gtest.h>

#include "win/Text.h"

namespace search {
namespace {

win::XmlAttributes Lawrence() {
    return {{"cityname", "Lawrence"}, {"statename", "KS"}, {"zipcode", "66044"}, {"citytype", "0"}};
}

// Returns the table as text: a line per location, its fields joined by "/"; or "failed".
std::string Read(const std::vector<win::XmlAttributes>& elements) {
    const LocationTable table = ReadLocations(elements);
    std::string text = table.failed ? "failed" : "";
    for (const auto& [city, region, type, code] : table.locations)
        text += win::Join({city, region, type, code}, "/") + "\n";
    return text;
}

TEST(LocationTable, ReadsAttributesInTheirOrder) {
    const win::XmlAttributes paris = {
        {"cityname", "Paris"}, {"countryname", "France"}, {"citycode", "64321"}, {"citytype", "1"}};
    const struct {
        const char* what;
        std::vector<win::XmlAttributes> elements;
        const char* table;
    } cases[] = {
        {"elements without attributes", {{}, Lawrence(), {}}, "Lawrence/KS/0/66044\n"},
        {"only an empty city overwrites",
         {{{"cityname", "A"}, {"statename", "KS"}, {"statename", ""}, {"cityname", ""}}},
         "/KS//\n"},
        {"names are case-sensitive; unknown ones are ignored",
         {{{"CityName", "A"}, {"zip", "1"}}},
         "///\n"},
        {"a city code between two ZIP codes",
         {Lawrence(), paris, Lawrence()},
         "Lawrence/KS/0/66044\nLawrence/KS/0/66044\n"},
        {"the next location reuses the slot and keeps what it does not overwrite",
         {paris, {{"cityname", "Lyon"}, {"statename", ""}}},
         "Lyon/France/1/64321\n"},
        {"attributes after the type overwrite the previous slot",
         {Lawrence(), {{"citytype", "1"}, {"cityname", "Paris"}, {"citycode", "64321"}}},
         "Paris/KS/0/64321\n"},
        {"there is no slot before the first",
         {{{"citytype", "1"}, {"cityname", "Paris"}}},
         "failed"},
        {"an empty code is not written there", {{{"citytype", "1"}, {"citycode", ""}}}, ""},
    };
    for (const auto& c : cases) EXPECT_EQ(Read(c.elements), c.table) << c.what;
}

TEST(LocationTable, StopsAtTheFiftySecondSlot) {
    for (const auto& [given, kept] : {std::pair(51, 51), {52, 52}, {60, 52}}) {
        const auto table =
            ReadLocations(std::vector<win::XmlAttributes>(given, Lawrence())).locations;
        ASSERT_EQ(table.size(), static_cast<std::size_t>(kept));
        EXPECT_EQ(table.back().city, kept == 52 ? "" : "Lawrence") << given;
    }
}

TEST(LocationTable, NumbersChooserRowsByPosition) {
    const std::vector<Location> table = {
        {"A", "KS", "0", "1"}, {"B", "", "2", "2"}, {"C", "", "0", "3"}};
    EXPECT_EQ(MakeChooserRows(table), (std::vector<std::string>{"A, KS", "C, "}));
    EXPECT_EQ(FindChosenPlace(table, 1)->code, "2");  // of B, although the row shows C
    EXPECT_FALSE(FindChosenPlace(table, 3));
}

TEST(LocationTable, ReadsTypesAsTruthValues) {
    for (const auto& [type, isZipCode] :
         {std::pair("0", 1), {"1", 0}, {"2", 1}, {"00", 0}, {"TRUE", 1}, {"False", 0}, {"é", -1}}) {
        const auto place = FindPlace({"", "", type, "64321"});
        EXPECT_EQ(place ? place->isZipCode : -1, isZipCode) << type;
    }
    // In the chooser the first character of type and code is the type.
    EXPECT_EQ(FindChosenPlace({{"", "", "", "066044"}}, 0)->code, "66044");
    EXPECT_FALSE(FindChosenPlace({{"", "", "True", "66044"}}, 0));
}

}  // namespace
}  // namespace search
