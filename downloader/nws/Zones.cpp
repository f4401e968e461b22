#include "downloader/nws/Zones.h"

#include <algorithm>
#include <cmath>

#include "downloader/feed/Json.h"
#include "win/Text.h"

namespace nws {
namespace {

// "KSZ009" a forecast or fire weather zone, "KSC045" a county.
bool IsZoneId(std::string_view text) {
    const auto isIn = [&](std::size_t at, char first, char last) {
        return text[at] >= first && text[at] <= last;
    };
    return text.size() == 6 && isIn(0, 'A', 'Z') && isIn(1, 'A', 'Z') &&
           (text[2] == 'Z' || text[2] == 'C') && isIn(3, '0', '9') && isIn(4, '0', '9') &&
           isIn(5, '0', '9');
}

std::optional<ZoneIds> UnpackList(std::string_view text) {
    ZoneIds zones = win::Split(text, ",");
    return std::all_of(zones.begin(), zones.end(), IsZoneId) ? std::optional(zones) : std::nullopt;
}

}  // namespace

std::vector<feed::Place> EdgesOf(const feed::Place& place) {
    constexpr int kHalfTurn = 180 * feed::kUnitsPerDegree;
    const double north = place.reach / feed::kKilometresPerDegree * feed::kUnitsPerDegree;
    const double shrink = std::cos(feed::PositionOf(place).latitude * feed::kRadiansPerDegree);
    const double east = north / std::max(shrink, 0.01);
    std::vector<feed::Place> edges;
    for (const auto& [up, right] : {std::pair{1, 0}, {0, 1}, {-1, 0}, {0, -1}}) {
        feed::Place edge = place;
        edge.latitude += static_cast<int>(std::lround(up * north));
        edge.longitude += static_cast<int>(std::lround(right * east));
        if (edge.longitude < -kHalfTurn) edge.longitude += 2 * kHalfTurn;
        if (edge.longitude > kHalfTurn) edge.longitude -= 2 * kHalfTurn;
        edges.push_back(edge);
    }
    return edges;
}

std::string_view ZoneIdOf(std::string_view address) {
    const std::string_view last = address.substr(address.rfind('/') + 1);
    return IsZoneId(last) ? last : std::string_view();
}

void AddZones(ZoneIds& zones, const ZoneIds& more) {
    zones.insert(zones.end(), more.begin(), more.end());
    std::sort(zones.begin(), zones.end());
    zones.erase(std::unique(zones.begin(), zones.end()), zones.end());
}

std::optional<ZoneIds> ReadPointZones(std::string json) {
    ZoneIds zones;
    bool isPoint = false;
    const bool isWhole = feed::ReadJson(std::move(json), [&](const feed::JsonItem& item) {
        isPoint |= item.path == "properties" && item.kind == feed::JsonItem::Kind::BeginObject;
        for (const char* name : {"forecastZone", "county", "fireWeatherZone"}) {
            if (item.path != std::string("properties/") + name) continue;
            const std::string_view id = ZoneIdOf(item.text);
            if (!id.empty()) AddZones(zones, {std::string(id)});
        }
    });
    return isWhole && isPoint ? std::optional(zones) : std::nullopt;
}

std::string PackZones(const PlaceZones& zones) {
    return win::Join(zones.own, ",") + ";" + win::Join(zones.all, ",");
}

std::optional<PlaceZones> UnpackZones(std::string_view text) {
    const std::size_t middle = std::min(text.find(';'), text.size());
    const auto own = UnpackList(text.substr(0, middle));
    const auto all = UnpackList(text.substr(std::min(middle + 1, text.size())));
    if (!own || !all || own->empty() || all->empty()) return std::nullopt;
    return PlaceZones{*own, *all};
}

}  // namespace nws
