#include "downloader/fpas/AreaShape.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numbers>
#include <string_view>

#include "win/Text.h"

namespace fpas {
namespace {

constexpr double kFar = std::numeric_limits<double>::infinity();
constexpr double kFarthest = 5;                // kilometres
constexpr double kDegreeOfLatitude = 111.195;  // kilometres, on a sphere of 6,371 km
constexpr double kFullTurn = 360;

bool IsWhite(char c) {
    return c == ' ' || c == '\n' || c == '\t' || c == '\r';
}

// Reads the numbers of a shape.
class NumberReader {
  public:
    explicit NumberReader(std::string_view text)
        : at_(text.data()), end_(text.data() + text.size()) {}

    bool IsAtEnd() {
        while (at_ != end_ && IsWhite(*at_)) ++at_;
        return at_ == end_;
    }

    // Reads a number with at most nine digits on each side of its point.
    bool ReadNumber(double& number) {
        static constexpr double kScales[] = {1,    1e-1, 1e-2, 1e-3, 1e-4,
                                             1e-5, 1e-6, 1e-7, 1e-8, 1e-9};
        if (IsAtEnd()) return false;
        const bool isNegative = *at_ == '-';
        if (isNegative || *at_ == '+') ++at_;
        std::uint32_t whole = 0;
        const std::size_t wholeDigits = ReadDigits(whole);
        std::uint32_t fraction = 0;
        std::size_t fractionDigits = 0;
        if (at_ != end_ && *at_ == '.') {
            ++at_;
            fractionDigits = ReadDigits(fraction);
            while (at_ != end_ && win::IsDigit(*at_)) ++at_;  // of no consequence
        }
        number = whole + fraction * kScales[fractionDigits];
        if (isNegative) number = -number;
        return wholeDigits + fractionDigits > 0;
    }

    // Reads a pair of degrees that can be a position; some senders count on past 180 degrees.
    bool ReadPosition(feed::Position& position) {
        if (!ReadNumber(position.latitude) || IsAtEnd() || *at_ != ',') return false;
        ++at_;
        return ReadNumber(position.longitude) && std::abs(position.latitude) <= 90 &&
               std::abs(position.longitude) <= kFullTurn;
    }

  private:
    std::size_t ReadDigits(std::uint32_t& number) {
        constexpr std::size_t kMost = 9;
        std::size_t count = 0;
        for (; count < kMost && at_ != end_ && win::IsDigit(*at_); ++count, ++at_)
            number = number * 10 + static_cast<std::uint32_t>(*at_ - '0');
        return count;
    }

    const char* at_;
    const char* end_;
};

// A ring whose longitudes do not jump at 180 degrees, and its extent.
struct Extent {
    feed::Position least{kFar, kFar};
    feed::Position most{-kFar, -kFar};
};

bool ReadRing(std::string_view text, feed::Ring& ring, Extent& extent) {
    for (NumberReader reader(text); !reader.IsAtEnd();) {
        feed::Position position;
        if (!reader.ReadPosition(position)) return false;
        if (!ring.empty()) {
            const double jump = position.longitude - ring.back().longitude;
            if (std::abs(jump) > kFullTurn / 2)
                position.longitude -= kFullTurn * std::round(jump / kFullTurn);
        }
        ring.push_back(position);
        extent.least.latitude = std::min(extent.least.latitude, position.latitude);
        extent.least.longitude = std::min(extent.least.longitude, position.longitude);
        extent.most.latitude = std::max(extent.most.latitude, position.latitude);
        extent.most.longitude = std::max(extent.most.longitude, position.longitude);
    }
    constexpr std::size_t kFewestPositions = 3;
    return ring.size() >= kFewestPositions;
}

// Whether the place may be within kFarthest of the extent.
bool IsNear(const Extent& extent, const feed::Position& place) {
    constexpr double kMargin = kFarthest / kDegreeOfLatitude;
    const double shrink = std::cos(place.latitude * std::numbers::pi / 180);
    const double sideMargin = kMargin / std::max(shrink, kMargin);
    const double eastward =
        std::fmod(place.longitude - extent.least.longitude + sideMargin + 4 * kFullTurn, kFullTurn);
    return place.latitude >= extent.least.latitude - kMargin &&
           place.latitude <= extent.most.latitude + kMargin &&
           eastward <= extent.most.longitude - extent.least.longitude + 2 * sideMargin;
}

// Reads only as far as needed: most polygons of a large area are nowhere near the place.
std::optional<double> DistanceToPolygon(std::string_view text, const feed::Position& place) {
    feed::Ring ring;
    Extent extent;
    if (!ReadRing(text, ring, extent)) return std::nullopt;
    if (!IsNear(extent, place)) return kFar;
    return feed::DistanceTo({{std::move(ring)}}, place);
}

// The distance along the surface, which is also accurate for the large circles of earthquakes.
double DistanceBetween(const feed::Position& left, const feed::Position& right) {
    constexpr double kRadian = std::numbers::pi / 180;
    const double north = std::sin((right.latitude - left.latitude) * kRadian / 2);
    const double east = std::sin((right.longitude - left.longitude) * kRadian / 2);
    const double square = north * north + std::cos(left.latitude * kRadian) *
                                              std::cos(right.latitude * kRadian) * east * east;
    return 2 * std::asin(std::sqrt(std::min(square, 1.0))) / kRadian * kDegreeOfLatitude;
}

std::optional<double> DistanceToCircle(std::string_view text, const feed::Position& place) {
    NumberReader reader(text);
    feed::Position centre;
    double radius = 0;
    if (!reader.ReadPosition(centre) || !reader.ReadNumber(radius) || !reader.IsAtEnd())
        return std::nullopt;
    const double distance = std::max(DistanceBetween(centre, place) - radius, 0.0);
    return distance <= kFarthest ? distance : kFar;
}

}  // namespace

std::optional<double> DistanceTo(const Area& area, const feed::Position& place) {
    if (area.polygons.empty() && area.circles.empty()) return std::nullopt;
    double nearest = kFar;
    for (const std::string& polygon : area.polygons) {
        const auto distance = DistanceToPolygon(polygon, place);
        if (!distance || *distance == 0) return distance;
        nearest = std::min(nearest, *distance);
    }
    for (const std::string& circle : area.circles) {
        const auto distance = DistanceToCircle(circle, place);
        if (!distance) return std::nullopt;
        nearest = std::min(nearest, *distance);
    }
    return nearest;
}

}  // namespace fpas
