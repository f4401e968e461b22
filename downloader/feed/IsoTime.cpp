#include "downloader/feed/IsoTime.h"

#include <algorithm>
#include <chrono>

#include "win/Text.h"

namespace feed {
namespace {

// Parses a zone such as "-07:00" or "Z"; returns the seconds by which it is ahead of UTC.
std::optional<std::int64_t> ParseZone(std::string_view zone) {
    if (zone == "Z" || zone == "z") return 0;
    if (zone.size() != 6 || (zone[0] != '+' && zone[0] != '-') || zone[3] != ':')
        return std::nullopt;
    const auto hours = win::ParseNumber(zone.substr(1, 2), 23);
    const auto minutes = win::ParseNumber(zone.substr(4), 59);
    if (!hours || !minutes) return std::nullopt;
    const std::int64_t seconds = (*hours * 60 + *minutes) * 60;
    return zone[0] == '-' ? -seconds : seconds;
}

}  // namespace

std::optional<std::int64_t> ParseTime(std::string_view text) {
    constexpr std::size_t kLength = 19;  // up to the seconds
    if (text.size() <= kLength || text[4] != '-' || text[7] != '-' || text[10] != 'T' ||
        text[13] != ':' || text[16] != ':')
        return std::nullopt;
    const auto year = win::ParseNumber(text.substr(0, 4), 9999);
    const auto month = win::ParseNumber(text.substr(5, 2), 12);
    const auto day = win::ParseNumber(text.substr(8, 2), 31);
    const auto hour = win::ParseNumber(text.substr(11, 2), 24);
    const auto minute = win::ParseNumber(text.substr(14, 2), 59);
    const auto second = win::ParseNumber(text.substr(17, 2), 60);
    if (!year || *year < 1970 || !month || *month == 0 || !day || *day == 0 || !hour || !minute ||
        !second)
        return std::nullopt;
    std::size_t zoneAt = kLength;
    if (text[zoneAt] == '.')
        zoneAt = std::min(text.find_first_not_of("0123456789", zoneAt + 1), text.size());
    const auto zone = ParseZone(text.substr(zoneAt));
    if (!zone) return std::nullopt;
    // A day that the month lacks counts on into the next month.
    const std::chrono::sys_days date =
        std::chrono::year_month_day(std::chrono::year(static_cast<int>(*year)),
                                    std::chrono::month(static_cast<unsigned>(*month)),
                                    std::chrono::day(static_cast<unsigned>(*day)));
    const std::int64_t hours = std::int64_t{date.time_since_epoch().count()} * 24 + *hour;
    return (hours * 60 + *minute) * 60 + *second - *zone;
}

int YearOf(std::int64_t time) {
    const std::chrono::sys_seconds moment{std::chrono::seconds(time)};
    const std::chrono::year_month_day date(std::chrono::floor<std::chrono::days>(moment));
    return static_cast<int>(date.year());
}

}  // namespace feed
