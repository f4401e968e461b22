#include "search/StationTable.h"

#include <gtest/gtest.h>

#include "win/Text.h"

namespace search {
namespace {

win::XmlAttributes Station(const std::string& id, const win::XmlAttributes& more) {
    win::XmlAttributes element = {{"id", id},
                                  {"name", "N" + id},
                                  {"zipcode", "02134"},
                                  {"latitude", "38.9"},
                                  {"longitude", "-95.2"}};
    element.insert(element.end(), more.begin(), more.end());
    return element;
}

win::XmlAttributes Plain(const std::string& id) {
    return Station(id, {{"city", "C" + id}, {"state", "KS"}, {"station-type", "WeatherBug"}});
}

std::string Column(const std::vector<std::string>& column) {
    return win::Join(column, "/");
}

TEST(StationTable, FillsEachColumnIndependently) {
    const struct {
        const char* what;
        std::vector<win::XmlAttributes> elements;
        const char* locations;
        const char* dataSources;
    } cases[] = {
        {"a country adds a data source, before the type's",
         {Station("1", {{"city", "Paris"}, {"country", "France"}, {"station-type", "X"}}),
          {},
          Plain("2")},
         "Paris, France/C2, KS",
         "CustomWeather/X/WeatherBug"},
        {"a city without a region is joined to the next one",
         {Station("1", {{"city", "Paris"}, {"station-type", "X"}}), Plain("2")},
         "ParisC2, KS",
         "X/WeatherBug"},
        {"and loses its last letter at the end",
         {Plain("1"), Station("2", {{"city", "Le Mée"}, {"station-type", "X"}}),
          Station("3", {{"city", "é"}})},
         "C1, KS/Le Mée",
         "WeatherBug/X"},
        {"a bar splits a value",
         {Station("1", {{"state", "K|S"}, {"station-type", "|"}})},
         ", K/S",
         "/"},
    };
    for (const auto& c : cases) {
        const auto table = ReadStations(c.elements);
        ASSERT_TRUE(table) << c.what;
        EXPECT_EQ(Column(table->locations), c.locations) << c.what;
        EXPECT_EQ(Column(table->dataSources), c.dataSources) << c.what;
    }
}

TEST(StationTable, ShortensNamesInParentheses) {
    const auto read = [](const char* name) {
        win::XmlAttributes element = Plain("1");
        element[1].text = name;
        return ReadStations({element, Plain("2")});
    };
    const std::pair<const char*, const char*> cases[] = {
        {"Downtown (KABC )", "KABC"}, {"Plain", "Plain"},     {"Open (KABC", "Open (KABC"},
        {"a) b (c) d (e)", ""},       {"Nested ((x) )", "("}, {"Café (Zoë)", "Zo"}};
    for (const auto& [name, shown] : cases) {
        const auto table = read(name);
        ASSERT_TRUE(table) << name;
        EXPECT_EQ(Column(table->names), std::string(shown) + "/N2") << name;
    }
    EXPECT_FALSE(read("Empty ()"));
}

TEST(StationTable, FailsWithoutAColumn) {
    EXPECT_TRUE(ReadStations({Plain("1")}));
    for (std::size_t left = 0; left < Plain("1").size(); ++left) {
        win::XmlAttributes element = Plain("1");
        const std::string name = element[left].name;
        element.erase(element.begin() + static_cast<std::ptrdiff_t>(left));
        // The location has two attributes; one is enough.
        EXPECT_EQ(ReadStations({element, element}).has_value(), name == "city" || name == "state")
            << name;
    }
    // An empty identifier makes a table without stations.
    EXPECT_TRUE(MakeListRows(*ReadStations({Plain("")}), true)->empty());
}

TEST(StationTable, ListsByPlace) {
    const auto table =
        ReadStations({Plain("1"),
                      Station("2", {{"city", "B"}, {"state", "MO"}, {"station-type", "NWS"}}),
                      {{"city-code", "64321"}}});
    ASSERT_TRUE(table);
    EXPECT_EQ(Column(table->codes), "02134/02134/064321");
    const auto byZipCode = *MakeListRows(*table, true);
    EXPECT_EQ(byZipCode[0].icon, kWeatherBugIcon);
    EXPECT_EQ(byZipCode[1].icon, kOtherStationIcon);
    EXPECT_EQ(byZipCode[1].dataSource, "NWS");
    const auto byCityCode = *MakeListRows(*table, false);
    EXPECT_EQ(byCityCode[0].icon, kOtherStationIcon);
    EXPECT_EQ(byCityCode[0].dataSource, "CustomWeather");
    // Only a list by ZIP code reads the data sources.
    const auto shorter = ReadStations({Plain("1"), Station("2", {{"state", "MO"}})});
    EXPECT_FALSE(MakeListRows(*shorter, true));
    EXPECT_EQ(MakeListRows(*shorter, false)->size(), 2u);
}

TEST(StationTable, FormatsStationLines) {
    auto table = *ReadStations({Plain("1")});
    const std::string spaces(100, ' ');
    EXPECT_EQ(FormatStationLine(table, 0), "C1, KS (N1)" + spaces + "1***02134***38.9***-95.2");
    EXPECT_FALSE(FormatStationLine(table, 1));
    table.names[0] = "N\nevil\r1";  // must not break the line of the station file
    EXPECT_EQ(FormatStationLine(table, 0),
              "C1, KS (N evil 1)" + spaces + "1***02134***38.9***-95.2");
    table.names[0].assign(5000, 'x');
    EXPECT_FALSE(FormatStationLine(table, 0));
    table.names[0] = "N";
    table.longitudes.clear();
    EXPECT_FALSE(FormatStationLine(table, 0));
}

}  // namespace
}  // namespace search
