#pragma once
#include <optional>
#include <string>
#include <vector>

#include "search/NodeRows.h"

// The table of the stations that the feed lists for a place.
namespace search {

// One column per kind of data. The feed's elements fill the columns each for itself, so that an
// element that lacks a value, or gives one twice, shifts that column against the others.
struct StationTable {
    std::vector<std::string> identifiers;
    std::vector<std::string> names;
    std::vector<std::string> locations;
    std::vector<std::string> dataSources;
    std::vector<std::string> codes;
    std::vector<std::string> latitudes;
    std::vector<std::string> longitudes;
};

// Reads the elements into the table. Nothing when a column has no value at all, or when a name has
// its brackets empty.
std::optional<StationTable> ReadStations(const std::vector<NodeRow>& rows);

// The small icons, counted from 1: of a WeatherBug station, of any other, of a place.
inline constexpr int kWeatherBugIcon = 1;
inline constexpr int kOtherStationIcon = 2;
inline constexpr int kPlaceIcon = 3;

// What the list shows of one station.
struct ListRow {
    std::string name;
    std::string location;
    std::string dataSource;
    int icon = kOtherStationIcon;
};

// One row for each identifier, in table order; nothing when a column that is shown is shorter. The
// stations of a city code all show the same data source, whatever the table says.
std::optional<std::vector<ListRow>> ListRows(const StationTable& table, bool byZipCode);

// The line by which the program watches the station; nothing when a column is too short.
std::optional<std::string> StationLineOf(const StationTable& table, std::size_t index);

}  // namespace search
