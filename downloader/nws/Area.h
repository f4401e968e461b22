#pragma once
#include <vector>

// The areas of alerts, and how far a place is from one.
namespace nws {

// Degrees; north and east are positive.
struct Position {
    double latitude = 0;
    double longitude = 0;
};

using Ring = std::vector<Position>;

// An outer ring and the rings of its holes. A ring may repeat its first position at its end.
using Polygon = std::vector<Ring>;

// No place is told of a polygon that is farther away than this, in kilometres.
inline constexpr double kLongestReach = 40;

// Returns the distance in kilometres from the place to the nearest of the polygons: 0 inside one,
// infinity if there is no polygon of at least three positions. Accurate to 1 % for distances up to
// kLongestReach; longer ones may be further off.
double DistanceTo(const std::vector<Polygon>& polygons, const Position& place);

}  // namespace nws
