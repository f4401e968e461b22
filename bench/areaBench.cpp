// Counts the towns inside warned areas that get the warning if each requests alerts for its nearest
// ZIP code: by the centre of the ZIP code alone, and by its reach. Arguments: places.dat; a file of
// towns, "LATITUDE LONGITUDE" on each line; a file of polygons, "LATITUDE,LONGITUDE ..." on each
// line. Prints how many towns lie inside, how many of them are missed by centre and by reach, how
// many ZIP codes get a warning by centre and by reach, and the largest distance in kilometres among
// them.
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "downloader/feed/Gazetteer.h"
#include "downloader/feed/Area.h"
#include "win/Files.h"
#include "win/Text.h"

namespace {

struct Code {
    feed::Position centre;
    double reach;
};

std::vector<Code> ReadCodes(const char* file) {
    const auto bytes = win::ReadWholeFile(file);
    const auto gazetteer = bytes ? feed::OpenGazetteer(*bytes) : std::nullopt;
    if (!gazetteer) std::exit(1);
    std::vector<Code> codes;
    for (int number = 0; number < 100'000; ++number) {
        const auto place = feed::FindZipCode(*gazetteer, win::Decimal(100'000 + number).substr(1));
        if (place) codes.push_back({feed::PositionOf(*place), place->reach});
    }
    return codes;
}

feed::Ring ReadPositions(std::string_view text, std::string_view separator) {
    feed::Ring positions;
    for (const std::string& line : win::Split(text, separator)) {
        feed::Position position;
        if (std::sscanf(line.c_str(), "%lf%*[ ,]%lf", &position.latitude, &position.longitude) == 2)
            positions.push_back(position);
    }
    return positions;
}

double Distance(const feed::Position& left, const feed::Position& right) {
    const double east =
        std::remainder(left.longitude - right.longitude, 360) * std::cos(left.latitude * 0.0174533);
    return std::hypot(east, left.latitude - right.latitude);
}

const Code& NearestCode(const std::vector<Code>& codes, const feed::Position& town) {
    const Code* nearest = &codes.front();
    for (const Code& code : codes)
        if (Distance(code.centre, town) < Distance(nearest->centre, town)) nearest = &code;
    return *nearest;
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 4) return 1;
    const auto codes = ReadCodes(arguments[1]);
    const auto townText = win::ReadWholeFile(arguments[2]);
    const auto polygonText = win::ReadWholeFile(arguments[3]);
    if (!townText || !polygonText || codes.empty()) return 1;
    const feed::Ring towns = ReadPositions(*townText, "\n");
    int inside = 0, missedByCentre = 0, missedByReach = 0, toldByCentre = 0, toldByReach = 0;
    double farthest = 0;
    for (const std::string& line : win::Split(*polygonText, "\n")) {
        const std::vector<feed::Polygon> polygons = {{ReadPositions(line, " ")}};
        for (const feed::Position& town : towns) {
            if (feed::DistanceTo(polygons, town) > 0) continue;
            const Code& code = NearestCode(codes, town);
            const double distance = feed::DistanceTo(polygons, code.centre);
            ++inside;
            missedByCentre += distance > 0;
            missedByReach += distance > code.reach;
        }
        for (const Code& code : codes) {
            const double distance = feed::DistanceTo(polygons, code.centre);
            toldByCentre += distance == 0;
            if (distance > code.reach) continue;
            ++toldByReach;
            farthest = std::max(farthest, distance);
        }
    }
    std::printf("%d %d %d %d %d %.1f\n", inside, missedByCentre, missedByReach, toldByCentre,
                toldByReach, farthest);
    return 0;
}
