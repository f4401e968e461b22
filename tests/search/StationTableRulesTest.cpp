#include "search/StationTableRules.h"

#include <gtest/gtest.h>

#include "win/Text.h"

namespace search {
namespace {

NodeRow Station(const std::string& id, std::vector<Attribute> more) {
    NodeRow row = {{"id", id},
                   {"name", "N" + id},
                   {"zipcode", "02134"},
                   {"latitude", "38.9"},
                   {"longitude", "-95.2"}};
    row.insert(row.end(), more.begin(), more.end());
    return row;
}

NodeRow Plain(const std::string& id) {
    return Station(id, {{"city", "C" + id}, {"state", "KS"}, {"station-type", "WeatherBug"}});
}

std::string Column(const std::vector<std::string>& column) {
    return win::Join(column, "/");
}

TEST(StationTableRules, ShiftsColumnsAsTheFeedFillsThem) {
    struct Case {
        const char* what;
        std::vector<NodeRow> rows;
        const char* locations;
        const char* dataSources;
    };
    const Case cases[] = {
        {"plain", {Plain("1"), {}, Plain("2")}, "C1, KS/C2, KS", "WeatherBug/WeatherBug"},
        {"a country names the data source, and so does a type beside it",
         {Station("1", {{"city", "Paris"}, {"country", "France"}, {"station-type", "X"}}),
          Plain("2")},
         "Paris, France/C2, KS",
         "CustomWeather/X/WeatherBug"},
        {"a city without a region runs together with the next",
         {Station("1", {{"city", "Paris"}, {"station-type", "X"}}), Plain("2")},
         "ParisC2, KS",
         "X/WeatherBug"},
        {"and loses its last letter at the end",
         {Plain("1"), Station("2", {{"city", "Le Mée"}, {"station-type", "X"}}),
          Station("3", {{"city", "é"}})},
         "C1, KS/Le Mée",
         "WeatherBug/X"},
        {"a region before its city",
         {Station("1", {{"state", "KS"}, {"city", "A"}, {"station-type", "X"}}), Plain("2")},
         ", KS/AC2, KS",
         "X/WeatherBug"},
        {"a bar in a text parts it",
         {Station("1", {{"state", "K|S"}, {"station-type", "|"}})},
         ", K/S",
         "/"},
    };
    for (const Case& c : cases) {
        const auto table = ReadStations(c.rows);
        ASSERT_TRUE(table) << c.what;
        EXPECT_EQ(Column(table->locations), c.locations) << c.what;
        EXPECT_EQ(Column(table->dataSources), c.dataSources) << c.what;
    }
}

TEST(StationTableRules, ShortensBracketedNames) {
    const std::pair<const char*, const char*> cases[] = {
        {"Downtown (KABC )", "KABC"}, {"Park (Main)", "Mai"}, {"Plain", "Plain"},
        {"Open (KABC", "Open (KABC"}, {"a) b (c) d (e)", ""}, {"Nested ((x) )", "("},
        {"Café (Zoë)", "Zo"},         {") (", ") ("}};
    for (const auto& [name, shown] : cases) {
        NodeRow row = Plain("1");
        row[1].text = name;
        const auto table = ReadStations({row, Plain("2")});
        ASSERT_TRUE(table) << name;
        EXPECT_EQ(Column(table->names), std::string(shown) + "/N2") << name;
    }
    NodeRow empty = Plain("1");
    empty[1].text = "Nothing ()";
    EXPECT_FALSE(ReadStations({empty, Plain("2")}));
}

TEST(StationTableRules, FailsWithoutAColumn) {
    EXPECT_FALSE(ReadStations({}));
    EXPECT_TRUE(ReadStations({Plain("1")}));
    for (std::size_t left = 0; left < Plain("1").size(); ++left) {
        NodeRow row = Plain("1");
        const std::string name = row[left].name;
        row.erase(row.begin() + static_cast<std::ptrdiff_t>(left));
        // Without a state the location still has its city.
        EXPECT_EQ(ReadStations({row, row}).has_value(), name == "city" || name == "state") << name;
    }
    EXPECT_FALSE(ReadStations({{{"ID", "1"}}}));
    // An identifier that is there but empty is a table without stations.
    NodeRow blank = Plain("");
    const auto table = ReadStations({blank});
    ASSERT_TRUE(table);
    EXPECT_TRUE(ListRows(*table, true)->empty());
}

TEST(StationTableRules, ListsByPlace) {
    const auto table =
        ReadStations({Plain("1"),
                      Station("2", {{"city", "B"}, {"state", "MO"}, {"station-type", "NWS"}}),
                      {{"city-code", "64321"}}});
    ASSERT_TRUE(table);
    EXPECT_EQ(Column(table->codes), "02134/02134/064321");
    const auto byZip = *ListRows(*table, true);
    EXPECT_EQ(byZip[0].icon, kWeatherBugIcon);
    EXPECT_EQ(byZip[1].icon, kOtherStationIcon);
    EXPECT_EQ(byZip[1].dataSource, "NWS");
    const auto byCity = *ListRows(*table, false);
    EXPECT_EQ(byCity[0].icon, kOtherStationIcon);
    EXPECT_EQ(byCity[0].dataSource, "CustomWeather");
    // A data source short: nothing by ZIP code, all by city code, which does not read it.
    const auto shorter = ReadStations({Plain("1"), Station("2", {{"state", "MO"}})});
    EXPECT_FALSE(ListRows(*shorter, true));
    EXPECT_EQ(ListRows(*shorter, false)->size(), 2u);
}

TEST(StationTableRules, MakesStationLines) {
    auto table = *ReadStations({Plain("1")});
    const std::string blanks(100, ' ');
    EXPECT_EQ(StationLineOf(table, 0), "C1, KS (N1)" + blanks + "1***02134***38.9***-95.2");
    EXPECT_FALSE(StationLineOf(table, 1));
    table.names[0] = "N\nevil\r1";  // must stay one line of the station file
    EXPECT_EQ(StationLineOf(table, 0), "C1, KS (N evil 1)" + blanks + "1***02134***38.9***-95.2");
    table.names[0].assign(5000, 'x');
    EXPECT_FALSE(StationLineOf(table, 0));
    table.longitudes.clear();
    EXPECT_FALSE(StationLineOf(table, 0));
}

}  // namespace
}  // namespace search
