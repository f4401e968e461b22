#include "search/StationTable.h"

#include <algorithm>

#include "stations/StationLine.h"
#include "win/Text.h"

namespace search {
namespace {

constexpr char kSeparator = '|';
constexpr char kCityCodeSource[] = "CustomWeather";

// Returns the part of a name in parentheses without its last character, because the feed ends that
// part with a space. Returns nullopt when the parentheses are empty.
std::optional<std::string> ShortName(const std::string& name) {
    const std::size_t open = name.find('(');
    if (open == std::string::npos) return name;
    const std::size_t close = name.find(')', open);
    if (close == std::string::npos) return name;
    const std::string_view inside = std::string_view(name).substr(open + 1, close - open - 1);
    if (inside.empty()) return std::nullopt;
    return std::string(win::FirstChars(inside, win::CountChars(inside) - 1));
}

// The columns while elements are read: each a text in which a separator follows every value.
struct ColumnTexts {
    std::string identifiers, names, locations, dataSources, codes, latitudes, longitudes;

    // Returns false when a value makes the table unusable.
    bool Take(const win::XmlAttribute& attribute) {
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

// Splits a column's text after removing its last character, which is a separator unless the last
// station has a city and no region: then the city loses its last letter. Returns false for an empty
// text.
bool SplitColumn(const std::string& text, std::vector<std::string>& column) {
    if (text.empty()) return false;
    column =
        win::Split(text.back() == kSeparator ? std::string_view(text).substr(0, text.size() - 1)
                                             : win::FirstChars(text, win::CountChars(text) - 1),
                   std::string_view(&kSeparator, 1));
    return true;
}

}  // namespace

std::optional<StationTable> ReadStations(const std::vector<win::XmlAttributes>& elements) {
    ColumnTexts texts;
    for (const win::XmlAttributes& element : elements)
        for (const win::XmlAttribute& attribute : element)
            if (!texts.Take(attribute)) return std::nullopt;
    StationTable table;
    const bool complete =
        SplitColumn(texts.identifiers, table.identifiers) &&
        SplitColumn(texts.names, table.names) && SplitColumn(texts.locations, table.locations) &&
        SplitColumn(texts.dataSources, table.dataSources) &&
        SplitColumn(texts.codes, table.codes) && SplitColumn(texts.latitudes, table.latitudes) &&
        SplitColumn(texts.longitudes, table.longitudes);
    if (!complete) return std::nullopt;
    return table;
}

std::optional<std::vector<ListRow>> MakeListRows(const StationTable& table, bool isZipCode) {
    const std::size_t count = table.identifiers.size();
    if (table.names.size() < count || table.locations.size() < count ||
        (isZipCode && table.dataSources.size() < count))
        return std::nullopt;
    std::vector<ListRow> rows;
    rows.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const std::string source = isZipCode ? table.dataSources[i] : kCityCodeSource;
        rows.push_back({table.names[i], table.locations[i], source,
                        isZipCode && source == "WeatherBug" ? kWeatherBugIcon : kOtherStationIcon});
    }
    return rows;
}

std::optional<std::string> FormatStationLine(const StationTable& table, std::size_t index) {
    for (const auto* column : {&table.identifiers, &table.names, &table.locations, &table.codes,
                               &table.latitudes, &table.longitudes})
        if (index >= column->size()) return std::nullopt;
    std::string line =
        stations::MakeStationLine(table.locations[index] + " (" + table.names[index] + ")",
                                  {table.identifiers[index], table.codes[index],
                                   table.latitudes[index], table.longitudes[index]});
    // The line must stay one line of the station file, and its code must fit in a command line.
    constexpr std::size_t kLongestLine = 4000;
    if (line.size() > kLongestLine) return std::nullopt;
    return win::ReplaceControls(std::move(line));
}

}  // namespace search
