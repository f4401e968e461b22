#include "downloader/nws/GeometryReader.h"

namespace nws {
namespace {

// Stores the count. Returns whether it changed.
bool HasChanged(std::size_t& stored, std::size_t count) {
    const bool hasChanged = stored != count;
    stored = count;
    return hasChanged;
}

}  // namespace

void GeometryReader::Read(const feed::JsonItem& item, std::size_t depth,
                          std::vector<feed::Polygon>& polygons) {
    using Kind = feed::JsonItem::Kind;
    // A number lies in a position, that in a ring, and that in a polygon.
    constexpr std::size_t kPositionUp = 1;
    constexpr std::size_t kRingUp = 2;
    constexpr std::size_t kPolygonUp = 3;
    if (item.kind == Kind::BeginArray && depth < kDeepest) ++begun_[depth];
    if (item.kind != Kind::Number || depth < kPolygonUp || depth > kDeepest) return;
    if (HasChanged(polygon_, begun_[depth - kPolygonUp]) || polygons.empty())
        polygons.emplace_back();
    feed::Polygon& polygon = polygons.back();
    if (HasChanged(ring_, begun_[depth - kRingUp]) || polygon.empty()) polygon.emplace_back();
    if (HasChanged(position_, begun_[depth - kPositionUp])) numbers_ = 0;
    ++numbers_;
    if (numbers_ == 1) polygon.back().push_back({0, item.number});
    if (numbers_ == 2) polygon.back().back().latitude = item.number;
}

}  // namespace nws
