#include "tray/MinuteClock.h"

#include "settings/ProgramState.h"
#include "settings/SettingKeys.h"
#include "tray/RetrieveAlerts.h"
#include "tray/modTrayMenu.h"
#include "win/Text.h"

namespace tray {
namespace {

Timer nextHalf = Timer::TimerUpdate1;
bool hasSlept = false;

// The two halves alternate; neither is started again once automatic updates are off.
void StartNextHalf() {
    if (settings::State().automaticUpdate && !IsTimerRunning(Timer::TimerUpdate1) &&
        !IsTimerRunning(Timer::TimerUpdate2))
        StartTimer(nextHalf);
}

// The minutes of the chosen interval. An unknown name counts as 0, so that every tick retrieves.
int IntervalMinutes() {
    for (const settings::Interval& interval : settings::kIntervals)
        if (interval.caption == settings::State().autoUpdateInterval) return interval.minutes;
    return 0;
}

// Counts this minute. Timers stop while the computer sleeps, so after a sleep the elapsed time
// counts too.
bool IsRetrievalDue() {
    constexpr std::uint64_t kMinute = 60'000;
    settings::ProgramState& state = settings::State();
    state.minuteCounter = win::AddInt16(state.minuteCounter, 1);
    const int interval = IntervalMinutes();
    const std::uint64_t elapsed = GetTickCount64() - state.lastCycleEnd;
    return state.minuteCounter >= interval ||
           (hasSlept && elapsed >= static_cast<std::uint64_t>(interval) * kMinute);
}

}  // namespace

void StartMinuteClock() {
    settings::ProgramState& state = settings::State();
    if (state.automaticUpdate) return;
    state.automaticUpdate = true;
    state.minuteCounter = 0;
    state.lastCycleEnd = GetTickCount64();
    StartTimer(Timer::TimerUpdate1);
}

void StopMinuteClock() {
    settings::State().automaticUpdate = false;
    StopTimer(Timer::TimerUpdate1);
    StopTimer(Timer::TimerUpdate2);
}

void TickMinuteClock(Timer half) {
    nextHalf = half == Timer::TimerUpdate1 ? Timer::TimerUpdate2 : Timer::TimerUpdate1;
    // No retrieval starts while the menu is open; the next tick starts it.
    if (!IsRetrievalDue() || IsTrayMenuOpen()) return StartNextHalf();
    hasSlept = false;
    settings::State().minuteCounter = 0;
    // RetrieveAlerts will ask for a station: the clock does not wait for the answer.
    if (settings::State().stationCount == 0) StartNextHalf();
    RetrieveAlerts(false, StartNextHalf);
}

void NoteSleep() {
    hasSlept = true;
}

}  // namespace tray
