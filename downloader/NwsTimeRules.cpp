#include "downloader/NwsTimeRules.h"

namespace downloader {
namespace {

constexpr std::int64_t kDay = 86400;

// The number in the digits at `at`; -1 unless all are digits.
int Digits(std::string_view text, std::size_t at, std::size_t count) {
    int number = 0;
    for (std::size_t i = at; i < at + count; ++i) {
        if (i >= text.size() || text[i] < '0' || text[i] > '9') return -1;
        number = number * 10 + (text[i] - '0');
    }
    return number;
}

// The days from the beginning of 1970 to a day of the Gregorian calendar. Years are counted from
// March, so that the leap day comes last.
std::int64_t DaysUntil(int year, int month, int day) {
    if (month <= 2) --year;
    const int dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    return std::int64_t{year} * 365 + year / 4 - year / 100 + year / 400 + dayOfYear - 719468;
}

// The seconds by which a zone such as "-07:00" or "Z" is ahead of UTC.
std::optional<int> ZoneSeconds(std::string_view zone) {
    if (zone == "Z" || zone == "z") return 0;
    if (zone.size() != 6 || (zone[0] != '+' && zone[0] != '-') || zone[3] != ':')
        return std::nullopt;
    const int hours = Digits(zone, 1, 2);
    const int minutes = Digits(zone, 4, 2);
    if (hours < 0 || hours > 23 || minutes < 0 || minutes > 59) return std::nullopt;
    const int seconds = (hours * 60 + minutes) * 60;
    return zone[0] == '-' ? -seconds : seconds;
}

}  // namespace

std::optional<std::int64_t> ParseMoment(std::string_view text) {
    constexpr std::size_t kLength = 19;  // up to the seconds
    const auto within = [](int number, int low, int high) {
        return number >= low && number <= high;
    };
    if (text.size() <= kLength || text[4] != '-' || text[7] != '-' || text[10] != 'T' ||
        text[13] != ':' || text[16] != ':')
        return std::nullopt;
    const int year = Digits(text, 0, 4);
    const int month = Digits(text, 5, 2);
    const int day = Digits(text, 8, 2);
    const int hour = Digits(text, 11, 2);
    const int minute = Digits(text, 14, 2);
    const int second = Digits(text, 17, 2);
    if (!within(year, 1970, 9999) || !within(month, 1, 12) || !within(day, 1, 31) ||
        !within(hour, 0, 24) || !within(minute, 0, 59) || !within(second, 0, 60))
        return std::nullopt;
    std::size_t zoneAt = kLength;
    if (text[zoneAt] == '.') do
            ++zoneAt;
        while (Digits(text, zoneAt, 1) >= 0);
    const auto zone = ZoneSeconds(text.substr(zoneAt));
    if (!zone) return std::nullopt;
    return DaysUntil(year, month, day) * kDay + (std::int64_t{hour} * 60 + minute) * 60 + second -
           *zone;
}

int YearOf(std::int64_t moment) {
    int year = 1970 + static_cast<int>(moment / (366 * kDay));
    while (DaysUntil(year + 1, 1, 1) * kDay <= moment) ++year;
    return year;
}

}  // namespace downloader
