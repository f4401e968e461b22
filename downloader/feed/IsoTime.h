#pragma once
#include <cstdint>
#include <optional>
#include <string_view>

// Times of ISO 8601 as seconds since the beginning of 1970 UTC.
namespace feed {

// Parses a time such as "2024-07-18T12:47:00-07:00". The seconds may have a fraction, which is
// ignored; the zone may be "Z". Returns nullopt for any other text.
std::optional<std::int64_t> ParseTime(std::string_view text);

// Returns the year, in UTC, of a time from 1970 on.
int YearOf(std::int64_t time);

}  // namespace feed
