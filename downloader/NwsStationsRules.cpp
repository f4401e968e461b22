#include "downloader/NwsStationsRules.h"

#include <algorithm>
#include <cmath>

#include "downloader/NwsJsonRules.h"
#include "downloader/NwsXmlRules.h"
#include "win/Text.h"

namespace downloader {
namespace {

using Kind = JsonItem::Kind;

constexpr std::size_t kMostStations = 25;
constexpr double kUnits = 10000;  // of a coordinate in a degree

struct Station {
    std::string id;
    std::string name;
    std::vector<double> coordinates;  // longitude, latitude, in degrees
};

struct Collector {
    std::vector<Station> stations;
    bool isCollection = false;
    bool hasList = false;

    void Take(const JsonItem& item) {
        const std::string_view path = item.path;
        if (path == "type") isCollection = item.text == "FeatureCollection";
        if (path == "features") hasList = item.kind == Kind::beginArray;
        if (path == "features[]" && item.kind == Kind::beginObject) stations.emplace_back();
        if (stations.empty()) return;
        if (path == "features[]/properties/stationIdentifier") stations.back().id = item.text;
        if (path == "features[]/properties/name") stations.back().name = item.text;
        if (path == "features[]/geometry/coordinates[]" && item.kind == Kind::number)
            stations.back().coordinates.push_back(item.number);
    }
};

bool IsUsable(const Station& station) {
    return !station.id.empty() && station.coordinates.size() >= 2 &&
           std::fabs(station.coordinates[0]) <= 180 && std::fabs(station.coordinates[1]) <= 90;
}

// A measure that grows with the distance between the station and the place; good enough to order.
double Distance(const Station& station, const Place& place) {
    constexpr double kRadians = 3.14159265358979 / 180;
    const double north = station.coordinates[1] - place.latitude / kUnits;
    double east = std::fabs(station.coordinates[0] - place.longitude / kUnits);
    if (east > 180) east = 360 - east;  // across the date line
    east *= std::cos(place.latitude / kUnits * kRadians);
    return north * north + east * east;
}

// The program reads brackets, bars and asterisks in these texts as marks of its own.
std::string WithoutMarks(std::string text) {
    for (char& c : text) {
        if (c == '(') c = '[';
        if (c == ')') c = ']';
        if (c == '|' || c == '*') c = ' ';
    }
    return text;
}

int Units(double degrees) {
    return static_cast<int>(std::lround(degrees * kUnits));
}

void AppendStation(std::string& xml, const Station& station, const Place& place) {
    xml += "<aws:station";
    AppendXmlAttribute(xml, "id", WithoutMarks(station.id));
    AppendXmlAttribute(xml, "name", WithoutMarks(station.name.empty() ? station.id : station.name));
    AppendXmlAttribute(xml, "city", place.name);
    AppendXmlAttribute(xml, "state", place.state);
    AppendXmlAttribute(xml, "zipcode", place.zipCode);
    AppendXmlAttribute(xml, "station-type", "NWS");
    AppendXmlAttribute(xml, "latitude", DegreesText(Units(station.coordinates[1])));
    AppendXmlAttribute(xml, "longitude", DegreesText(Units(station.coordinates[0])));
    xml += "/>\n";
}

bool IsPathChar(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           std::string_view("/,.-_").find(c) != std::string_view::npos;
}

}  // namespace

std::optional<std::string> StationsPath(std::string_view json) {
    std::string url;
    if (!ReadJson(json, [&](const JsonItem& item) {
            if (item.path == "properties/observationStations") url = item.text;
        }))
        return std::nullopt;
    const std::size_t host = url.find("://");
    if (host == std::string::npos) return std::nullopt;
    const std::size_t path = url.find('/', host + 3);
    if (path == std::string::npos || !std::all_of(url.begin() + path, url.end(), IsPathChar))
        return std::nullopt;
    return url.substr(path);
}

std::optional<std::string> StationsXml(std::string_view json, const Place& place) {
    Collector collector;
    if (!ReadJson(json, [&](const JsonItem& item) { collector.Take(item); }) ||
        !collector.isCollection || !collector.hasList)
        return std::nullopt;
    std::vector<Station>& stations = collector.stations;
    std::erase_if(stations, [](const Station& station) { return !IsUsable(station); });
    std::stable_sort(stations.begin(), stations.end(),
                     [&](const Station& left, const Station& right) {
                         return Distance(left, place) < Distance(right, place);
                     });
    stations.resize(std::min(stations.size(), kMostStations));
    std::string xml(kXmlHead);
    for (const Station& station : stations) AppendStation(xml, station, place);
    return xml.append(kXmlTail);
}

std::string LocationsXml(const std::vector<Place>& places) {
    std::string xml(kXmlHead);
    xml += "<aws:locations>\n";
    for (const Place& place : places) {
        xml += "<aws:location";
        AppendXmlAttribute(xml, "cityname", place.name);
        AppendXmlAttribute(xml, "countryname", "USA");
        AppendXmlAttribute(xml, "statename", place.state);
        AppendXmlAttribute(xml, "zipcode", place.zipCode);
        AppendXmlAttribute(xml, "citytype", "0");
        xml += "/>\n";
    }
    xml += "</aws:locations>";
    return xml.append(kXmlTail);
}

}  // namespace downloader
