#pragma once
#include <optional>
#include <string>

#include "downloader/feed/Gazetteer.h"

namespace nws {

// Builds the station document from the Weather Service's list of stations for a point: at most 25
// stations, nearest to the place first. Each has the city, state and ZIP code of the place, so that
// alerts are requested for the place. Returns nullopt when the answer is not a complete list of
// stations.
std::optional<std::string> BuildStationDocument(std::string json, const feed::Place& place);

}  // namespace nws
