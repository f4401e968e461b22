#pragma once
#include <numbers>
#include <vector>

// The areas of alerts, and how far a place is from one.
namespace feed {

inline constexpr double kKilometresPerDegree = 111.195;  // of latitude, on a sphere of 6,371 km
inline constexpr double kRadiansPerDegree = std::numbers::pi / 180;

// Degrees; north and east are positive.
struct Position {
    double latitude = 0;
    double longitude = 0;
};

using Ring = std::vector<Position>;

// An outer ring and the rings of its holes. A ring may repeat its first position at its end.
using Polygon = std::vector<Ring>;

// Returns the distance in kilometres from the place to the nearest of the polygons: 0 inside one,
// infinity if there is no polygon of at least three positions. Accurate to 1 % up to 40 km; longer
// distances may be further off.
double DistanceTo(const std::vector<Polygon>& polygons, const Position& place);

}  // namespace feed
