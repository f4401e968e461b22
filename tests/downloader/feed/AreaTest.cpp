#include "downloader/feed/Area.h"

#include <gtest/gtest.h>

#include <limits>

using namespace feed;

namespace {

Ring Square(double south, double west, double degrees) {
    return {{south, west},
            {south, west + degrees},
            {south + degrees, west + degrees},
            {south + degrees, west}};
}

TEST(DistanceTo, MeasuresToTheNearestSide) {
    constexpr double kNone = std::numeric_limits<double>::infinity();
    const Polygon square = {Square(39, -96, 1)};
    const Polygon ringed = {Square(39, -96, 1), Square(39.25, -95.75, 0.5)};
    const Polygon acrossTheDateLine = {{{51, 179.5}, {51, -179.5}, {52, -179.5}, {52, 179.5}}};
    const struct {
        std::vector<Polygon> polygons;
        Position place;
        double kilometres;
    } kCases[] = {
        {{square}, {39.5, -95.5}, 0},
        {{square}, {38.9, -95.5}, 11.12},
        {{square}, {39.5, -94.9}, 8.58},
        {{square}, {40.1, -94.9}, 13.99},  // to the corner
        {{ringed}, {39.5, -95.5}, 21.45},  // in the hole
        {{ringed}, {39.1, -95.5}, 0},
        {{square, {Square(40, -97, 0.5)}}, {40.2, -96.8}, 0},
        {{acrossTheDateLine}, {51.5, 180}, 0},
        {{acrossTheDateLine}, {51.5, -179.4}, 6.92},
        {{}, {39, -96}, kNone},
        {{{}, {{}}, {{{39, -96}, {40, -96}}}}, {39, -96}, kNone},
        {{{{{39, -96}, {39, -96}, {39, -96}}}}, {39.1, -96}, 11.12},
    };
    for (const auto& c : kCases) {
        const double found = DistanceTo(c.polygons, c.place);
        if (c.kilometres == kNone)
            EXPECT_EQ(found, kNone);
        else
            EXPECT_NEAR(found, c.kilometres, 0.1) << c.place.latitude << " " << c.place.longitude;
    }
}

}  // namespace
