#pragma once
#include <array>
#include <cstddef>
#include <vector>

#include "downloader/feed/Json.h"

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

// A polygon farther away than this from the centre of a place does not concern it. In kilometres.
inline constexpr double kLongestReach = 40;

// Returns the distance in kilometres from the place to the nearest of the polygons: 0 inside one,
// infinity if there is no polygon of at least three positions. Accurate to 1 % for distances up to
// kLongestReach; longer ones may be further off.
double DistanceTo(const std::vector<Polygon>& polygons, const Position& place);

// Collects the polygons of one GeoJSON geometry (Polygon or MultiPolygon) from the items of its
// coordinates.
class GeometryReader {
  public:
    // Takes the next item and adds to the polygons. `depth` counts the arrays around the item.
    void Read(const feed::JsonItem& item, std::size_t depth, std::vector<Polygon>& polygons);

  private:
    static constexpr std::size_t kDeepest = 4;  // the numbers of a MultiPolygon

    std::array<std::size_t, kDeepest> begun_{};  // how many arrays have begun at each depth
    std::size_t polygon_ = 0;  // of the last number: the count of its polygon, ...
    std::size_t ring_ = 0;
    std::size_t position_ = 0;
    std::size_t numbers_ = 0;  // read of the position: longitude, latitude, perhaps height
};

}  // namespace nws
