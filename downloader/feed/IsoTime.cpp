#include "downloader/feed/IsoTime.h"

#include "win/Text.h"

namespace feed {
namespace {

constexpr std::int64_t kDay = 86400;

// Parses the `count` digits at `at`; returns -1 unless all of them are digits.
int ParseDigits(std::string_view text, std::size_t at, std::size_t count) {
    int number = 0;
    for (std::size_t i = at; i < at + count; ++i) {
        if (i >= text.size() || !win::IsDigit(text[i])) return -1;
        number = number * 10 + (text[i] - '0');
    }
    return number;
}

// Returns the days from 1 January 1970 to a date of the Gregorian calendar. Years are counted from
// March, so that the leap day comes last.
std::int64_t DaysUntil(int year, int month, int day) {
    if (month <= 2) --year;
    const int dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    return std::int64_t{year} * 365 + year / 4 - year / 100 + year / 400 + dayOfYear - 719468;
}

// Parses a zone such as "-07:00" or "Z"; returns the seconds by which it is ahead of UTC.
std::optional<int> ParseZone(std::string_view zone) {
    if (zone == "Z" || zone == "z") return 0;
    if (zone.size() != 6 || (zone[0] != '+' && zone[0] != '-') || zone[3] != ':')
        return std::nullopt;
    const int hours = ParseDigits(zone, 1, 2);
    const int minutes = ParseDigits(zone, 4, 2);
    if (hours < 0 || hours > 23 || minutes < 0 || minutes > 59) return std::nullopt;
    const int seconds = (hours * 60 + minutes) * 60;
    return zone[0] == '-' ? -seconds : seconds;
}

}  // namespace

std::optional<std::int64_t> ParseTime(std::string_view text) {
    constexpr std::size_t kLength = 19;  // up to the seconds
    const auto within = [](int number, int low, int high) {
        return number >= low && number <= high;
    };
    if (text.size() <= kLength || text[4] != '-' || text[7] != '-' || text[10] != 'T' ||
        text[13] != ':' || text[16] != ':')
        return std::nullopt;
    const int year = ParseDigits(text, 0, 4);
    const int month = ParseDigits(text, 5, 2);
    const int day = ParseDigits(text, 8, 2);
    const int hour = ParseDigits(text, 11, 2);
    const int minute = ParseDigits(text, 14, 2);
    const int second = ParseDigits(text, 17, 2);
    if (!within(year, 1970, 9999) || !within(month, 1, 12) || !within(day, 1, 31) ||
        !within(hour, 0, 24) || !within(minute, 0, 59) || !within(second, 0, 60))
        return std::nullopt;
    std::size_t zoneAt = kLength;
    if (text[zoneAt] == '.')
        for (++zoneAt; ParseDigits(text, zoneAt, 1) >= 0;) ++zoneAt;
    const auto zone = ParseZone(text.substr(zoneAt));
    if (!zone) return std::nullopt;
    return DaysUntil(year, month, day) * kDay + (std::int64_t{hour} * 60 + minute) * 60 + second -
           *zone;
}

int YearOf(std::int64_t time) {
    int year = 1970 + static_cast<int>(time / (366 * kDay));
    while (DaysUntil(year + 1, 1, 1) * kDay <= time) ++year;
    return year;
}

}  // namespace feed
