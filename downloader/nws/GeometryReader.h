#pragma once
#include <array>
#include <cstddef>
#include <vector>

#include "downloader/feed/Area.h"
#include "downloader/feed/Json.h"

namespace nws {

// Collects the polygons of one GeoJSON geometry (Polygon or MultiPolygon) from the items of its
// coordinates.
class GeometryReader {
  public:
    // Takes the next item and adds to the polygons. `depth` counts the arrays around the item.
    void Read(const feed::JsonItem& item, std::size_t depth, std::vector<feed::Polygon>& polygons);

  private:
    static constexpr std::size_t kDeepest = 4;  // the numbers of a MultiPolygon

    std::array<std::size_t, kDeepest> begun_{};  // how many arrays have begun at each depth
    std::size_t polygon_ = 0;  // of the last number: the count of its polygon, ...
    std::size_t ring_ = 0;
    std::size_t position_ = 0;
    std::size_t numbers_ = 0;  // read of the position: longitude, latitude, perhaps height
};

}  // namespace nws
