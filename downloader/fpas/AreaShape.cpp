#include "downloader/fpas/AreaShape.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string_view>

#include "win/Text.h"

namespace fpas {
namespace {

constexpr double kFar = std::numeric_limits<double>::infinity();
constexpr double kFarthest = 5;  // kilometres

bool IsWhite(char c) {
    return c == ' ' || c == '\n' || c == '\t' || c == '\r';
}

// A position in millionths of a degree: integers are read several times as fast.
struct Point {
    std::int32_t latitude = 0;
    std::int32_t longitude = 0;
};
constexpr std::int32_t kDegree = 1'000'000;
constexpr std::int32_t kTurn = 360 * kDegree;

// Reads the numbers of a shape.
class NumberReader {
  public:
    explicit NumberReader(std::string_view text)
        : at_(text.data()), end_(text.data() + text.size()) {}

    bool IsAtEnd() {
        while (at_ != end_ && IsWhite(*at_)) ++at_;
        return at_ == end_;
    }

    // Reads a decimal number in millionths, which must be smaller than 1000.
    bool ReadMillionths(std::int32_t& number) {
        if (IsAtEnd()) return false;
        const bool isNegative = *at_ == '-';
        if (isNegative || *at_ == '+') ++at_;
        constexpr int kMostWhole = 3;
        std::int32_t value = 0;
        const int whole = ReadDigits(value, kMostWhole);
        int fraction = 0;
        constexpr int kMostFraction = 6;
        if (at_ != end_ && *at_ == '.') {
            ++at_;
            fraction = ReadDigits(value, kMostFraction);
            while (at_ != end_ && IsDigit(*at_)) ++at_;  // too precise to matter
        }
        static constexpr std::int32_t kScales[] = {1'000'000, 100'000, 10'000, 1'000, 100, 10, 1};
        number = value * kScales[fraction];
        if (isNegative) number = -number;
        return whole + fraction > 0;
    }

    // Reads a pair of degrees that can be a position; some senders continue past 180 degrees.
    bool ReadPoint(Point& point) {
        if (!ReadMillionths(point.latitude) || IsAtEnd() || *at_ != ',') return false;
        ++at_;
        return ReadMillionths(point.longitude) && (at_ == end_ || IsWhite(*at_)) &&
               std::abs(point.latitude) <= 90 * kDegree && std::abs(point.longitude) <= kTurn;
    }

    // Reads the number of kilometres at the end of a circle.
    bool ReadRadius(double& radius) {
        if (IsAtEnd()) return false;
        const std::string_view text(at_, static_cast<std::size_t>(end_ - at_));
        radius = win::LeadingNumber(text);
        return win::IsNumeric(text) && radius >= 0;
    }

  private:
    static bool IsDigit(char c) { return static_cast<unsigned char>(c - '0') < 10; }

    // Works on copies, which the compiler keeps in registers.
    int ReadDigits(std::int32_t& value, int most) {
        const char* at = at_;
        const char* const last = end_ - at < most ? end_ : at + most;
        std::int32_t read = value;
        for (; at != last && IsDigit(*at); ++at) read = read * 10 + (*at - '0');
        value = read;
        const auto count = static_cast<int>(at - at_);
        at_ = at;
        return count;
    }

    const char* at_;
    const char* end_;
};

// The bounds of a ring.
struct Extent {
    Point least{INT32_MAX, INT32_MAX};
    Point most{INT32_MIN, INT32_MIN};
};

feed::Position ToPosition(const Point& point) {
    return {static_cast<double>(point.latitude) / kDegree,
            static_cast<double>(point.longitude) / kDegree};
}

// Calls `visit` for each point of a polygon. A longitude does not jump at 180 degrees, but
// continues. Returns false if the polygon cannot be read.
template <class Visit>
bool ReadRing(std::string_view text, const Visit& visit) {
    constexpr std::int32_t kFarthestTurn = 3 * kTurn;
    constexpr int kFewest = 3;
    int count = 0;
    Point last;
    for (NumberReader reader(text); !reader.IsAtEnd(); ++count) {
        Point point;
        if (!reader.ReadPoint(point)) return false;
        while (count > 0 && point.longitude - last.longitude > kTurn / 2) point.longitude -= kTurn;
        while (count > 0 && point.longitude - last.longitude < -kTurn / 2) point.longitude += kTurn;
        if (std::abs(point.longitude) > kFarthestTurn) return false;
        visit(point);
        last = point;
    }
    return count >= kFewest;
}

// Whether the place may be within kFarthest of the extent.
bool IsNear(const Extent& extent, const feed::Position& place) {
    constexpr double kMargin = kFarthest / feed::kKilometresPerDegree;
    constexpr double kFullTurn = 360;
    const feed::Position least = ToPosition(extent.least);
    const feed::Position most = ToPosition(extent.most);
    const double shrink = std::cos(place.latitude * feed::kRadiansPerDegree);
    const double sideMargin = kMargin / std::max(shrink, kMargin);
    const double eastward =
        std::fmod(place.longitude - least.longitude + sideMargin + 5 * kFullTurn, kFullTurn);
    return place.latitude >= least.latitude - kMargin &&
           place.latitude <= most.latitude + kMargin &&
           eastward <= most.longitude - least.longitude + 2 * sideMargin;
}

// The extent alone rules out most polygons of a large area.
std::optional<double> DistanceToPolygon(std::string_view text, const feed::Position& place) {
    Extent extent;
    const bool isRing = ReadRing(text, [&](const Point& point) {
        extent.least.latitude = std::min(extent.least.latitude, point.latitude);
        extent.least.longitude = std::min(extent.least.longitude, point.longitude);
        extent.most.latitude = std::max(extent.most.latitude, point.latitude);
        extent.most.longitude = std::max(extent.most.longitude, point.longitude);
    });
    const std::int64_t width = std::int64_t{extent.most.longitude} - extent.least.longitude;
    // The corners of a wide polygon do not show which way around the Earth it extends.
    if (!isRing || width == 0 || width >= kTurn / 2) return std::nullopt;
    if (!IsNear(extent, place)) return kFar;
    feed::Ring ring;
    ReadRing(text, [&](const Point& point) { ring.push_back(ToPosition(point)); });
    return feed::DistanceTo({{std::move(ring)}}, place);
}

// The distance along the surface, which is also accurate for the large circles of earthquakes.
double DistanceBetween(const feed::Position& left, const feed::Position& right) {
    constexpr double kRadian = feed::kRadiansPerDegree;
    const double north = std::sin((right.latitude - left.latitude) * kRadian / 2);
    const double east = std::sin((right.longitude - left.longitude) * kRadian / 2);
    const double square = north * north + std::cos(left.latitude * kRadian) *
                                              std::cos(right.latitude * kRadian) * east * east;
    return 2 * std::asin(std::sqrt(std::min(square, 1.0))) / kRadian * feed::kKilometresPerDegree;
}

std::optional<double> DistanceToCircle(std::string_view text, const feed::Position& place) {
    NumberReader reader(text);
    Point centre;
    double radius = 0;
    if (!reader.ReadPoint(centre) || !reader.ReadRadius(radius)) return std::nullopt;
    const double distance = std::max(DistanceBetween(ToPosition(centre), place) - radius, 0.0);
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
