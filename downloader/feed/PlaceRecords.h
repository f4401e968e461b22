#pragma once
#include <cstddef>

// The records of the gazetteer: the offset of each number in its record. Every text is an offset of
// 3 bytes in the texts; coordinates have 3 bytes, populations and indexes 2, if nothing else is
// said.
namespace feed {

// Of towns and cities alike.
struct PlaceRecord {
    static constexpr std::size_t kName = 0;
    static constexpr std::size_t kPopulation = 3;  // only fit for comparison
};

struct TownRecord : PlaceRecord {
    static constexpr std::size_t kZipCode = 5;  // index of one of its ZIP codes
    static constexpr std::size_t kState = 7;    // 1 byte
    static constexpr std::size_t kSize = 8;
};

struct CityRecord : PlaceRecord {
    static constexpr std::size_t kRegion = 5;  // and kIsRegionShown
    static constexpr std::size_t kNumber = 7;  // of GeoNames, 3 bytes
    static constexpr std::size_t kLatitude = 10;
    static constexpr std::size_t kLongitude = 13;
    static constexpr std::size_t kSize = 16;
    // The highest bit of the region: the country has several cities of the name.
    static constexpr unsigned kIsRegionShown = 0x8000;
};

struct StateRecord {
    static constexpr std::size_t kCode = 0;  // 2 letters
    static constexpr std::size_t kName = 2;
    static constexpr std::size_t kSize = 5;
};

struct CountryRecord {
    static constexpr std::size_t kCode = 0;  // 2 letters
    static constexpr std::size_t kName = 2;
    static constexpr std::size_t kOtherName = 5;  // an empty text if it has none
    static constexpr std::size_t kSize = 8;
};

struct RegionRecord {
    static constexpr std::size_t kName = 0;
    static constexpr std::size_t kCountry = 3;  // 1 byte
    static constexpr std::size_t kSize = 4;
};

struct ZipCodeRecord {
    static constexpr std::size_t kCode = 0;  // as a number, 3 bytes
    static constexpr std::size_t kTown = 3;
    static constexpr std::size_t kLatitude = 5;
    static constexpr std::size_t kLongitude = 8;
    static constexpr std::size_t kReach = 11;  // in quarters of a kilometre, 1 byte
    static constexpr std::size_t kSize = 12;
};

struct OtherNameRecord {
    static constexpr std::size_t kHash = 0;  // of the folded name, 4 bytes
    static constexpr std::size_t kCity = 4;
    static constexpr std::size_t kSize = 6;
};

}  // namespace feed
