#include "downloader/nws/Endpoints.h"

#include <algorithm>

#include "downloader/feed/Json.h"
#include "win/Text.h"

namespace nws {
namespace {

// Returns a place's coordinates, "latitude,longitude" in degrees.
std::string FormatPoint(const feed::Place& place) {
    return feed::FormatDegrees(place.latitude) + "," + feed::FormatDegrees(place.longitude);
}

bool IsPathChar(char c) {
    return win::IsLetter(c) || win::IsDigit(c) ||
           std::string_view("/,.-_").find(c) != std::string_view::npos;
}

}  // namespace

std::string AlertsAddress(const std::string& origin, const ZoneIds& zones) {
    return origin + "/alerts/active?status=actual&zone=" + win::Join(zones, ",");
}

std::string PointAddress(const std::string& origin, const feed::Place& place) {
    return origin + "/points/" + FormatPoint(place);
}

std::optional<std::string> StationsAddress(const std::string& origin, std::string pointJson) {
    std::string url;
    if (!feed::ReadJson(std::move(pointJson), [&](const feed::JsonItem& item) {
            if (item.path == "properties/observationStations") url = item.text;
        }))
        return std::nullopt;
    const std::size_t host = url.find("://");
    if (host == std::string::npos) return std::nullopt;
    const std::size_t path = url.find('/', host + 3);
    if (path == std::string::npos || !std::all_of(url.begin() + path, url.end(), IsPathChar))
        return std::nullopt;
    return origin + url.substr(path);
}

}  // namespace nws
