#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace tray {

// The minutes of an interval name. Any other text, "Never" among them, gives 0, which makes every
// tick retrieve: whoever sets "Never" stops the clock instead.
int IntervalMinutes(std::string_view intervalName);

// Whether a minute tick must retrieve: `minuteCounter` (this minute included) has reached the
// interval, or the computer has slept, when the counter stood still, and the interval has passed by
// the clock.
bool IsRetrievalDue(int minuteCounter, int intervalMinutes, bool hasSlept,
                    std::uint64_t millisecondsSinceLastCycle);

// The tooltip for the stored time of the last update; empty when there is none. `dateOfText` and
// `today` are short dates: an update of today shows its time alone, an older one has " @ " for
// every blank, the one before the day-half marker too, on purpose.
std::string TrayTip(std::string_view lastUpdated, std::string_view dateOfText,
                    std::string_view today);

}  // namespace tray
