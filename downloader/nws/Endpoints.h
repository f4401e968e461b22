#pragma once
#include <optional>
#include <string>

#include "downloader/feed/Gazetteer.h"
#include "downloader/nws/Zones.h"

// The addresses of the Weather Service. `origin` is "https://" and the host, perhaps with a path.
namespace nws {

// Returns the address of the alerts for any of the zones.
std::string AlertsAddress(const std::string& origin, const ZoneIds& zones);

// Returns the address of the point that a place lies in.
std::string PointAddress(const std::string& origin, const feed::Place& place);

// Returns the address of a point's list of stations, which the answer about the point contains. The
// host in the answer is replaced by the origin, so that no other server is contacted. Returns
// nullopt when the answer contains no such address.
std::optional<std::string> StationsAddress(const std::string& origin, std::string pointJson);

}  // namespace nws
