#include "downloader/feed/Area.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace feed {
namespace {

constexpr std::size_t kFewestPositions = 3;

// Kilometres east and north of the place.
struct Offset {
    double east;
    double north;
};

Offset OffsetFrom(const Position& place, const Position& position) {
    const double eastDegrees = std::remainder(position.longitude - place.longitude, 360);
    const double shrink = std::cos(place.latitude * kRadiansPerDegree);
    return {eastDegrees * shrink * kKilometresPerDegree,
            (position.latitude - place.latitude) * kKilometresPerDegree};
}

// The distance from the place to the line between two positions.
double DistanceToSide(const Offset& from, const Offset& to) {
    const double east = to.east - from.east;
    const double north = to.north - from.north;
    const double square = east * east + north * north;
    const double along = square > 0 ? -(from.east * east + from.north * north) / square : 0;
    const double at = std::clamp(along, 0.0, 1.0);
    return std::hypot(from.east + at * east, from.north + at * north);
}

// Whether a line from the place to the east crosses the side.
bool CrossesSide(const Offset& from, const Offset& to) {
    if ((from.north > 0) == (to.north > 0)) return false;
    return from.east + (to.east - from.east) * from.north / (from.north - to.north) > 0;
}

double DistanceTo(const Polygon& polygon, const Position& place) {
    double nearest = std::numeric_limits<double>::infinity();
    bool isInside = false;
    for (const Ring& ring : polygon) {
        if (ring.size() < kFewestPositions) continue;
        Offset from = OffsetFrom(place, ring.back());
        for (const Position& position : ring) {
            const Offset to = OffsetFrom(place, position);
            nearest = std::min(nearest, DistanceToSide(from, to));
            // An odd number of crossings is inside; a hole's side adds one.
            if (CrossesSide(from, to)) isInside = !isInside;
            from = to;
        }
    }
    return isInside ? 0 : nearest;
}

}  // namespace

double DistanceTo(const std::vector<Polygon>& polygons, const Position& place) {
    double nearest = std::numeric_limits<double>::infinity();
    for (const Polygon& polygon : polygons) nearest = std::min(nearest, DistanceTo(polygon, place));
    return nearest;
}

}  // namespace feed
