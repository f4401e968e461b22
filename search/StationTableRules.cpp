#include "search/StationTableRules.h"

#include <algorithm>

#include "stations/StationLine.h"
#include "win/Text.h"

namespace search {
namespace {

constexpr char kSeparator = '|';
constexpr char kCityCodeSource[] = "CustomWeather";

// The part of a name that stands in brackets, without its last character: the feed's bracketed
// names end in a blank. Nothing when the brackets hold not even that.
std::optional<std::string> ShortName(const std::string& name) {
    const std::size_t open = name.find('(');
    if (open == std::string::npos) return name;
    const std::size_t close = name.find(')', open);
    if (close == std::string::npos) return name;
    const std::string_view inside = std::string_view(name).substr(open + 1, close - open - 1);
    if (inside.empty()) return std::nullopt;
    return std::string(win::FirstChars(inside, win::CountChars(inside) - 1));
}

// The columns as they are gathered: each a text of values that end in the separator.
struct Gathered {
    std::string identifiers, names, locations, dataSources, codes, latitudes, longitudes;

    // False for a value that ends the reading.
    bool Take(const Attribute& attribute) {
        const auto& [name, text] = attribute;
        if (name == "id") return Add(identifiers, text);
        if (name == "name") {
            const auto shortName = ShortName(text);
            return shortName && Add(names, *shortName);
        }
        if (name == "city") locations += text;
        if (name == "country")
            return Add(locations, ", " + text) && Add(dataSources, kCityCodeSource);
        if (name == "state") return Add(locations, ", " + text);
        if (name == "station-type") return Add(dataSources, text);
        if (name == "city-code") return Add(codes, "0" + text);
        if (name == "zipcode") return Add(codes, text);
        if (name == "latitude") return Add(latitudes, text);
        if (name == "longitude") return Add(longitudes, text);
        return true;
    }

    static bool Add(std::string& column, const std::string& value) {
        column.append(value).push_back(kSeparator);
        return true;
    }
};

// The values of a gathered column, of which the last character is cut off: mostly a separator, but
// of a city that no region follows, its last letter. False for a column without any value.
bool TakeApart(const std::string& gathered, std::vector<std::string>& column) {
    if (gathered.empty()) return false;
    column = win::Split(gathered.back() == kSeparator
                            ? std::string_view(gathered).substr(0, gathered.size() - 1)
                            : win::FirstChars(gathered, win::CountChars(gathered) - 1),
                        std::string_view(&kSeparator, 1));
    return true;
}

}  // namespace

std::optional<StationTable> ReadStations(const std::vector<NodeRow>& rows) {
    Gathered gathered;
    for (const NodeRow& row : rows)
        for (const Attribute& attribute : row)
            if (!gathered.Take(attribute)) return std::nullopt;
    StationTable table;
    const bool complete =
        TakeApart(gathered.identifiers, table.identifiers) &&
        TakeApart(gathered.names, table.names) && TakeApart(gathered.locations, table.locations) &&
        TakeApart(gathered.dataSources, table.dataSources) &&
        TakeApart(gathered.codes, table.codes) && TakeApart(gathered.latitudes, table.latitudes) &&
        TakeApart(gathered.longitudes, table.longitudes);
    if (!complete) return std::nullopt;
    return table;
}

std::optional<std::vector<ListRow>> ListRows(const StationTable& table, bool byZipCode) {
    const std::size_t count = table.identifiers.size();
    if (table.names.size() < count || table.locations.size() < count ||
        (byZipCode && table.dataSources.size() < count))
        return std::nullopt;
    std::vector<ListRow> rows;
    rows.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const std::string source = byZipCode ? table.dataSources[i] : kCityCodeSource;
        rows.push_back({table.names[i], table.locations[i], source,
                        byZipCode && source == "WeatherBug" ? kWeatherBugIcon : kOtherStationIcon});
    }
    return rows;
}

std::optional<std::string> StationLineOf(const StationTable& table, std::size_t index) {
    for (const auto* column : {&table.identifiers, &table.names, &table.locations, &table.codes,
                               &table.latitudes, &table.longitudes})
        if (index >= column->size()) return std::nullopt;
    std::string line = stations::MakeStationLine(
        table.locations[index] + " (" + table.names[index] + ")",
        stations::MakeHiddenText(table.identifiers[index], table.codes[index],
                                 table.latitudes[index], table.longitudes[index]));
    // It must stay one line of the station file, and its code a fit part of a command line.
    constexpr std::size_t longestLine = 4000;
    if (line.size() > longestLine) return std::nullopt;
    for (char& c : line)
        if (static_cast<unsigned char>(c) < ' ') c = ' ';
    return line;
}

}  // namespace search
