#include "downloader/feed/Gazetteer.h"

#include <algorithm>
#include <cstdlib>

#include "downloader/feed/PlaceRecords.h"
#include "settings/FeedContract.h"
#include "win/Text.h"

namespace feed {
namespace {

constexpr std::string_view kMagic = "SVPLACE3";
constexpr std::size_t kZipLength = 5;  // characters
constexpr double kReachUnits = 4;      // in a kilometre

// Reads the little-endian number of `size` bytes at `at`; bytes beyond the end count as 0.
std::uint32_t NumberAt(std::string_view bytes, std::size_t at, std::size_t size) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < size && at + i < bytes.size(); ++i)
        number |= std::uint32_t{static_cast<unsigned char>(bytes[at + i])} << (8 * i);
    return number;
}

// Returns the signed coordinate in a record.
int CoordinateOf(const Table& table, std::size_t index, std::size_t offset) {
    constexpr int kSign = 1 << 23;
    const int number = static_cast<int>(table.Number(index, offset, 3));
    return number < kSign ? number : number - 2 * kSign;
}

Place ZipCodeAt(const Gazetteer& gazetteer, std::size_t index) {
    const Table& codes = gazetteer.zipCodes;
    const std::size_t town = codes.Number(index, ZipCodeRecord::kTown, 2);
    return {win::Decimal(100'000 + codes.Number(index, ZipCodeRecord::kCode, 3)).substr(1),
            TextOf(gazetteer, gazetteer.towns, town, TownRecord::kName),
            TextOf(gazetteer, gazetteer.states, gazetteer.towns.Number(town, TownRecord::kState, 1),
                   StateRecord::kName),
            CoordinateOf(codes, index, ZipCodeRecord::kLatitude),
            CoordinateOf(codes, index, ZipCodeRecord::kLongitude),
            codes.Number(index, ZipCodeRecord::kReach, 1) / kReachUnits};
}

// Returns the number in the code of a city abroad; nullopt for any other code.
std::optional<std::int64_t> CityNumber(std::string_view code) {
    if (!settings::IsAbroad(code)) return std::nullopt;
    return win::ParseNumber(code.substr(1), INT32_MAX);
}

}  // namespace

std::uint32_t Table::Number(std::size_t index, std::size_t offset, std::size_t size) const {
    return index < Count() ? NumberAt(bytes, index * recordSize + offset, size) : 0;
}

std::optional<Gazetteer> OpenGazetteer(std::string_view bytes) {
    if (!bytes.starts_with(kMagic)) return std::nullopt;
    Gazetteer gazetteer;
    Table texts;
    const std::pair<Table*, std::size_t> tables[] = {
        {&gazetteer.states, StateRecord::kSize},
        {&gazetteer.towns, TownRecord::kSize},
        {&gazetteer.zipCodes, ZipCodeRecord::kSize},
        {&gazetteer.countries, CountryRecord::kSize},
        {&gazetteer.regions, RegionRecord::kSize},
        {&gazetteer.cities, CityRecord::kSize},
        {&gazetteer.otherNames, OtherNameRecord::kSize},
        {&texts, 1},
    };
    constexpr std::size_t kCountSize = 4;
    std::size_t count = kMagic.size();
    std::size_t at = count + std::size(tables) * kCountSize;
    if (bytes.size() < at) return std::nullopt;
    for (const auto& [table, recordSize] : tables) {
        const std::size_t records = NumberAt(bytes, count, kCountSize);
        if (records > (bytes.size() - at) / recordSize) return std::nullopt;
        *table = {bytes.substr(at, records * recordSize), recordSize};
        at += table->bytes.size();
        count += kCountSize;
    }
    if (at != bytes.size()) return std::nullopt;
    gazetteer.texts = texts.bytes;
    return gazetteer;
}

bool IsCityCode(std::string_view code) {
    return CityNumber(code).has_value();
}

std::optional<Place> FindZipCode(const Gazetteer& gazetteer, std::string_view zipCode) {
    if (zipCode.size() > kZipLength && zipCode[kZipLength] == '-')
        zipCode = zipCode.substr(0, kZipLength);
    if (zipCode.size() != kZipLength) return std::nullopt;
    const auto number = win::ParseNumber(zipCode, INT32_MAX);
    if (!number) return std::nullopt;
    const Table& codes = gazetteer.zipCodes;
    const auto codeAt = [&](std::size_t index) {
        return codes.Number(index, ZipCodeRecord::kCode, 3);
    };
    const std::size_t index = PartitionPoint(
        0, codes.Count(), [&](std::size_t middle) { return codeAt(middle) < *number; });
    if (index == codes.Count() || codeAt(index) != *number) return std::nullopt;
    return ZipCodeAt(gazetteer, index);
}

std::optional<Place> FindCity(const Gazetteer& gazetteer, std::string_view code) {
    const auto number = CityNumber(code);
    if (!number) return std::nullopt;
    // They are sorted by name. A table of their order by number would take more space than it is
    // worth: this takes less than a millisecond.
    for (std::size_t index = 0; index < gazetteer.cities.Count(); ++index)
        if (gazetteer.cities.Number(index, CityRecord::kNumber, 3) == *number)
            return CityAt(gazetteer, index);
    return std::nullopt;
}

Place TownAt(const Gazetteer& gazetteer, std::size_t index) {
    return ZipCodeAt(gazetteer, gazetteer.towns.Number(index, TownRecord::kZipCode, 2));
}

Place CityAt(const Gazetteer& gazetteer, std::size_t index) {
    const Table& cities = gazetteer.cities;
    const std::uint32_t region = cities.Number(index, CityRecord::kRegion, 2);
    const std::size_t regionIndex = region & ~CityRecord::kIsRegionShown;
    Place city;
    city.code =
        settings::kAbroadLetter + win::Decimal(cities.Number(index, CityRecord::kNumber, 3));
    city.name = TextOf(gazetteer, cities, index, CityRecord::kName);
    if (region & CityRecord::kIsRegionShown)
        city.state = TextOf(gazetteer, gazetteer.regions, regionIndex, RegionRecord::kName);
    city.latitude = CoordinateOf(cities, index, CityRecord::kLatitude);
    city.longitude = CoordinateOf(cities, index, CityRecord::kLongitude);
    city.country = TextOf(gazetteer, gazetteer.countries,
                          gazetteer.regions.Number(regionIndex, RegionRecord::kCountry, 1),
                          CountryRecord::kName);
    return city;
}

std::string AreaOf(const Place& place) {
    std::string area(place.state);
    if (!IsCityCode(place.code)) return area;
    return area.append(area.empty() ? "" : ", ").append(place.country);
}

std::string_view TextOf(const Gazetteer& gazetteer, const Table& table, std::size_t index,
                        std::size_t offset) {
    const std::size_t start = table.Number(index, offset, 3);
    if (start >= gazetteer.texts.size()) return {};
    const std::string_view rest = gazetteer.texts.substr(start);
    return rest.substr(0, rest.find('\0'));
}

std::string FormatDegrees(int coordinate) {
    const long long size = std::llabs(coordinate);
    std::string fraction = win::Decimal(kUnitsPerDegree + size % kUnitsPerDegree).substr(1);
    fraction.resize(fraction.find_last_not_of('0') + 1);
    std::string text = (coordinate < 0 ? "-" : "") + win::Decimal(size / kUnitsPerDegree);
    return fraction.empty() ? text : text + "." + fraction;
}

}  // namespace feed
