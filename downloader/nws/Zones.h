#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "downloader/feed/Gazetteer.h"

// The service's zones (forecast zones, counties, fire weather zones) in which a place lies, by
// identifiers such as "KSZ009". Alerts are requested by zone.
namespace nws {

using ZoneIds = std::vector<std::string>;  // sorted, each once

// The zones of a place: those of its centre, and those within its reach, the centre's among them.
struct PlaceZones {
    ZoneIds own;
    ZoneIds all;
};

// The places at the reach of a place, to the north, east, south and west.
std::vector<feed::Place> EdgesOf(const feed::Place& place);

// Reads the zones from the service's answer about a point; none if it names none. Returns nullopt
// if the answer is not one about a point.
std::optional<ZoneIds> ReadPointZones(std::string json);

// Adds zones to others.
void AddZones(ZoneIds& zones, const ZoneIds& more);

// The identifier at the end of a zone's address; empty if there is none.
std::string_view ZoneIdOf(std::string_view address);

// Both lists as one line of text, for the cache; and back, nullopt if the text is not such a line.
std::string PackZones(const PlaceZones& zones);
std::optional<PlaceZones> UnpackZones(std::string_view text);

}  // namespace nws
