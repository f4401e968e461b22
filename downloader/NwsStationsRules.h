#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "downloader/NwsPlacesRules.h"

namespace downloader {

// The path of a point's list of stations, "/gridpoints/OKX/33,35/stations", from the answer about
// the point. Its host is left out: only the server asked is asked again. Nothing when the answer
// has none.
std::optional<std::string> StationsPath(std::string_view json);

// The station document made of such a list: at most 25 stations, those nearest to the place first,
// each with the place's city, state and ZIP code, so that alerts are asked for the place. Nothing
// when the answer is not a whole list of stations.
std::optional<std::string> StationsXml(std::string_view json, const Place& place);

// The location document of a search.
std::string LocationsXml(const std::vector<Place>& places);

}  // namespace downloader
