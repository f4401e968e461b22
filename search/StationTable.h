#pragma once
#include <optional>
#include <string>
#include <vector>

#include "win/XmlAttribute.h"

// The stations that the feed lists for a place.
namespace search {

// One column per kind of data. Each column is filled independently from the feed's elements, so an
// element that lacks a value, or has one twice, shifts that column against the others.
struct StationTable {
    std::vector<std::string> identifiers;
    std::vector<std::string> names;
    std::vector<std::string> locations;
    std::vector<std::string> dataSources;
    std::vector<std::string> codes;
    std::vector<std::string> latitudes;
    std::vector<std::string> longitudes;
};

// Reads the feed's station elements into a table. Returns nullopt when a column has no value at
// all, or when a name contains empty parentheses.
std::optional<StationTable> ReadStations(const std::vector<win::XmlAttributes>& elements);

// The small icons of the lists, counted from 1.
inline constexpr int kWeatherBugIcon = 1;
inline constexpr int kOtherStationIcon = 2;
inline constexpr int kPlaceIcon = 3;

// A station as the list shows it.
struct ListRow {
    std::string name;
    std::string location;
    std::string dataSource;
    int icon = kOtherStationIcon;
};

// Returns one row for each identifier, in table order, or nullopt when a column to show is shorter.
// The stations of a city code all show the same data source, whatever the table says.
std::optional<std::vector<ListRow>> MakeListRows(const StationTable& table, bool isZipCode);

// Returns the line that the station list stores for a station (`index` counts from 0). Returns
// nullopt when a column is too short or the line too long.
std::optional<std::string> FormatStationLine(const StationTable& table, std::size_t index);

}  // namespace search
