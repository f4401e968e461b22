#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "downloader/feed/Area.h"

// The gazetteer: the ZIP codes of the United States with their towns, and the cities of other
// countries. tools/make-places writes it to places.dat and describes the format. Look-ups search
// the file's bytes directly; the texts found point into them. The contents are not validated:
// damage in them leads to wrong or empty places, never to a read outside the bytes.
namespace feed {

// A table of records of one size.
struct Table {
    std::string_view bytes;
    std::size_t recordSize = 1;

    std::size_t Count() const { return bytes.size() / recordSize; }

    // Returns the little-endian number of `size` bytes at an offset in the record of an index.
    // Returns 0 beyond the last record.
    std::uint32_t Number(std::size_t index, std::size_t offset, std::size_t size) const;
};

struct Gazetteer {
    Table states;  // of the United States, like the towns and the ZIP codes
    Table towns;
    Table zipCodes;
    Table countries;  // the others
    Table regions;
    Table cities;
    Table otherNames;
    std::string_view texts;
};

inline constexpr int kUnitsPerDegree = 10'000;  // of the coordinates of places

// A place. Its coordinates are integers, kUnitsPerDegree in a degree.
struct Place {
    std::string code;  // five digits, or "g" and the number of a city abroad
    std::string_view name;
    // The full name of the state. Abroad: the region, if the country has several cities of the
    // name; else empty.
    std::string_view state;
    int latitude = 0;
    int longitude = 0;
    double reach = 0;  // kilometres, 3 to 40: how far the ZIP code's area extends; 0 abroad
    std::string_view country = "USA";
};

// Returns the position of a place.
inline Position PositionOf(const Place& place) {
    constexpr double kDegree = kUnitsPerDegree;
    return {place.latitude / kDegree, place.longitude / kDegree};
}

// Opens a gazetteer. Returns nullopt when the bytes are not a complete one.
std::optional<Gazetteer> OpenGazetteer(std::string_view bytes);

// Whether a code can be that of a city abroad: "g" and a number.
bool IsCityCode(std::string_view code);

// Finds the place of a ZIP code, which may be a ZIP+4 code.
std::optional<Place> FindZipCode(const Gazetteer& gazetteer, std::string_view zipCode);

// Finds the city abroad of a code such as "g2988507".
std::optional<Place> FindCity(const Gazetteer& gazetteer, std::string_view code);

// Return the town or city at an index.
Place TownAt(const Gazetteer& gazetteer, std::size_t index);
Place CityAt(const Gazetteer& gazetteer, std::size_t index);

// Returns the area that follows the name of a place: the state; abroad the region, if there is one,
// and the country: "Ontario, Canada".
std::string AreaOf(const Place& place);

// Returns the text whose offset is in a record.
std::string_view TextOf(const Gazetteer& gazetteer, const Table& table, std::size_t index,
                        std::size_t offset);

// Returns the first index in [low, high) for which `isBefore` is false; `high` when there is none.
template <class Predicate>
std::size_t PartitionPoint(std::size_t low, std::size_t high, Predicate isBefore) {
    while (low < high) {
        const std::size_t middle = low + (high - low) / 2;
        if (isBefore(middle)) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    return low;
}

// Formats a coordinate in degrees without trailing zeros: "-74.006".
std::string FormatDegrees(int coordinate);

}  // namespace feed
