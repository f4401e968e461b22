#include "downloader/nws/Stations.h"

#include <algorithm>
#include <cmath>

#include "downloader/feed/FeedXml.h"
#include "downloader/feed/Json.h"

namespace nws {
namespace {

using feed::JsonItem;
using feed::Place;
using Kind = JsonItem::Kind;

constexpr std::size_t kMostStations = 25;

struct Station {
    std::string id;
    std::string name;
    std::vector<double> coordinates;  // longitude, latitude, in degrees
};

struct Collector {
    std::vector<Station> stations;
    bool isCollection = false;
    bool hasList = false;

    void Read(const JsonItem& item) {
        const std::string_view path = item.path;
        if (path == "type") isCollection = item.text == "FeatureCollection";
        if (path == "features") hasList = item.kind == Kind::BeginArray;
        if (path == "features[]" && item.kind == Kind::BeginObject) stations.emplace_back();
        if (stations.empty()) return;
        if (path == "features[]/properties/stationIdentifier") stations.back().id = item.text;
        if (path == "features[]/properties/name") stations.back().name = item.text;
        if (path == "features[]/geometry/coordinates[]" && item.kind == Kind::Number)
            stations.back().coordinates.push_back(item.number);
    }
};

bool IsUsable(const Station& station) {
    return !station.id.empty() && station.coordinates.size() >= 2 &&
           std::fabs(station.coordinates[0]) <= 180 && std::fabs(station.coordinates[1]) <= 90;
}

// Returns a measure that increases with the distance between the station and the place and is
// accurate enough for sorting.
double DistanceMeasure(const Station& station, const Place& place) {
    const feed::Position centre = feed::PositionOf(place);
    const double north = station.coordinates[1] - centre.latitude;
    double east = std::fabs(station.coordinates[0] - centre.longitude);
    if (east > 180) east = 360 - east;  // across the date line
    east *= std::cos(centre.latitude * feed::kRadiansPerDegree);
    return north * north + east * east;
}

int ToUnits(double degrees) {
    return static_cast<int>(std::lround(degrees * feed::kUnitsPerDegree));
}

}  // namespace

std::optional<std::string> BuildStationDocument(std::string json, const Place& place) {
    Collector collector;
    if (!feed::ReadJson(std::move(json), [&](const JsonItem& item) { collector.Read(item); }) ||
        !collector.isCollection || !collector.hasList)
        return std::nullopt;
    std::vector<Station>& stations = collector.stations;
    std::erase_if(stations, [](const Station& station) { return !IsUsable(station); });
    std::stable_sort(stations.begin(), stations.end(),
                     [&](const Station& left, const Station& right) {
                         return DistanceMeasure(left, place) < DistanceMeasure(right, place);
                     });
    stations.resize(std::min(stations.size(), kMostStations));
    std::string xml(feed::kXmlHead);
    for (const Station& station : stations)
        feed::AppendStation(xml,
                            {station.id, station.name.empty() ? station.id : station.name, "NWS",
                             ToUnits(station.coordinates[1]), ToUnits(station.coordinates[0])},
                            place);
    return xml.append(feed::kXmlTail);
}

}  // namespace nws
