#pragma once
#include <optional>

#include "downloader/feed/Area.h"
#include "downloader/fpas/Alert.h"

namespace fpas {

// Returns the distance in kilometres from the place to the nearest shape of the area: 0 inside one,
// infinity if all are farther away than 5 km. Returns nullopt if the area has no shape, or one that
// cannot be read, such as a polygon around half the Earth: it may be anywhere.
std::optional<double> DistanceTo(const Area& area, const feed::Position& place);

}  // namespace fpas
