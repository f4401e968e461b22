#include "tray/ClockRules.h"

#include <algorithm>

#include "settings/SettingKeys.h"
#include "win/Text.h"

namespace tray {
namespace {

// What follows the first blank behind the date; a short date may itself hold blanks.
std::string_view TimePart(std::string_view text, std::string_view date) {
    const std::size_t start = text.starts_with(date) ? date.size() : 0;
    const std::size_t blank = text.find(' ', start);
    return blank == std::string_view::npos ? text : text.substr(blank + 1);
}

}  // namespace

int IntervalMinutes(std::string_view intervalName) {
    for (const settings::Interval& interval : settings::kIntervals)
        if (interval.caption == intervalName) return interval.minutes;
    return 0;
}

bool IsRetrievalDue(int minuteCounter, int intervalMinutes, bool hasSlept,
                    std::uint64_t millisecondsSinceLastCycle) {
    constexpr std::uint64_t minute = 60'000;
    return minuteCounter > intervalMinutes - 1 ||
           (hasSlept &&
            millisecondsSinceLastCycle >= static_cast<std::uint64_t>(intervalMinutes) * minute);
}

std::string TrayTip(std::string_view lastUpdated, std::string_view dateOfText,
                    std::string_view today) {
    if (lastUpdated.empty()) return {};
    const std::string when = dateOfText == today ? std::string(TimePart(lastUpdated, today))
                                                 : win::ReplaceAll(lastUpdated, " ", " @ ");
    return "Skyvane Alerts (Last Updated: " + when + ")";
}

}  // namespace tray
