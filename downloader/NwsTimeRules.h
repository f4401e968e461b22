#pragma once
#include <cstdint>
#include <optional>
#include <string_view>

// Moments, counted in seconds since the beginning of 1970 UTC.
namespace downloader {

// The moment of a text such as "2024-07-18T12:47:00-07:00"; the seconds may have a fraction, the
// zone may be "Z". Nothing for any other text.
std::optional<std::int64_t> ParseMoment(std::string_view text);

// The year of a moment, by UTC.
int YearOf(std::int64_t moment);

}  // namespace downloader
