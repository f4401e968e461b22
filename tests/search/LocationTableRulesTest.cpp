#include "search/LocationTableRules.h"

#include <gtest/gtest.h>

#include "win/Text.h"

namespace search {
namespace {

NodeRow Lawrence() {
    return {{"cityname", "Lawrence"}, {"statename", "KS"}, {"zipcode", "66044"}, {"citytype", "0"}};
}

// The table as text: a line per location, its fields joined by "/"; "failed" where it did.
std::string Read(const std::vector<NodeRow>& rows) {
    const LocationTable table = ReadLocations(rows);
    std::string text = table.failed ? "failed" : "";
    for (const auto& [city, region, type, code] : table.locations)
        text += win::Join({city, region, type, code}, "/") + "\n";
    return text;
}

TEST(LocationTableRules, ReadsAttributesInTheirOrder) {
    struct Case {
        const char* what;
        std::vector<NodeRow> rows;
        const char* table;
    };
    const NodeRow paris = {
        {"cityname", "Paris"}, {"countryname", "France"}, {"citycode", "64321"}, {"citytype", "1"}};
    const Case cases[] = {
        {"nothing", {}, ""},
        {"elements without attributes", {{}, Lawrence(), {}}, "Lawrence/KS/0/66044\n"},
        {"an empty region or code overwrites nothing, an empty city does",
         {{{"cityname", "A"},
           {"countryname", "USA"},
           {"statename", ""},
           {"zipcode", "1"},
           {"citycode", ""},
           {"cityname", ""}}},
         "/USA//1\n"},
        {"names are told apart by case; others are ignored",
         {{{"CityName", "A"}, {"zip", "1"}}},
         "///\n"},
        {"a city code alone", {paris}, ""},
        {"a city code between",
         {Lawrence(), paris, Lawrence()},
         "Lawrence/KS/0/66044\nLawrence/KS/0/66044\n"},
        {"the next one takes the slot over with what it does not overwrite",
         {paris, {{"cityname", "Lyon"}, {"statename", ""}}},
         "Lyon/France/1/64321\n"},
        {"what follows the type goes to the slot before",
         {Lawrence(), {{"citytype", "1"}, {"cityname", "Paris"}, {"citycode", "64321"}}},
         "Paris/KS/0/64321\n"},
        {"and there is none before the first",
         {{{"citytype", "1"}, {"cityname", "Paris"}}},
         "failed"},
        {"an empty text is not written there",
         {{{"citytype", "1"}, {"statename", ""}, {"citycode", ""}}},
         ""},
    };
    for (const Case& c : cases) EXPECT_EQ(Read(c.rows), c.table) << c.what;
}

TEST(LocationTableRules, StopsAtTheFiftySecondSlot) {
    for (const auto& [given, kept] : {std::pair(50, 50), {51, 51}, {52, 52}, {60, 52}}) {
        const auto table = ReadLocations(std::vector<NodeRow>(given, Lawrence())).locations;
        ASSERT_EQ(table.size(), static_cast<std::size_t>(kept));
        EXPECT_EQ(table.back().city, kept == 52 ? "" : "Lawrence") << given;
    }
}

TEST(LocationTableRules, NumbersTheChoosersRowsByPosition) {
    const std::vector<Location> table = {
        {"A", "KS", "0", "1"}, {"B", "KS", "2", "2"}, {"C", "", "0", "3"}, {"", "", "", ""}};
    EXPECT_EQ(ChooserRows(table), (std::vector<std::string>{"A, KS", "C, "}));
    EXPECT_EQ(SelectedLocation(table, 1), "22");  // the row of C
    EXPECT_EQ(SelectedLocation(table, 4), "");
}

}  // namespace
}  // namespace search
