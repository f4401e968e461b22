#include "tray/MinuteClock.h"

#include "settings/ProgramState.h"
#include "tray/ClockRules.h"
#include "tray/RetrieveAlerts.h"
#include "tray/modTrayMenu.h"
#include "win/Text.h"

namespace tray {
namespace {

Timer nextHalf = Timer::TimerUpdate1;
bool hasSlept = false;

// The two halves of the clock alternate, and stop by themselves once the flag is cleared.
void StartNextHalf() {
    if (settings::State().automaticUpdate && !IsTimerRunning(Timer::TimerUpdate1) &&
        !IsTimerRunning(Timer::TimerUpdate2))
        StartTimer(nextHalf);
}

bool IsDue() {
    settings::ProgramState& state = settings::State();
    state.minuteCounter = win::AddInt16(state.minuteCounter, 1);
    return IsRetrievalDue(state.minuteCounter, IntervalMinutes(state.autoUpdateInterval), hasSlept,
                          GetTickCount64() - state.lastCycleEnd);
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
    // While the menu is open no retrieval starts; the next minute will do.
    if (!IsDue() || IsTrayMenuOpen()) return StartNextHalf();
    hasSlept = false;
    settings::State().minuteCounter = 0;
    // The question for a station may stay open: the clock does not wait for its answer.
    if (settings::State().stationCount == 0) StartNextHalf();
    RetrieveAlerts(false, StartNextHalf);
}

void NoteSleep() {
    hasSlept = true;
}

}  // namespace tray
