#pragma once

#include "tray/TrayWindow.h"

// The clock of automatic updates: it ticks once a minute and starts a retrieval when the chosen
// interval has passed.
namespace tray {

// Starts the clock and resets its count; a running clock is left alone.
void StartMinuteClock();
void StopMinuteClock();

// Handles one of the clock's two timers, TimerUpdate1 or TimerUpdate2.
void TickMinuteClock(Timer half);

// Records that the computer has woken from sleep: the next tick also checks the elapsed time.
void NoteSleep();

}  // namespace tray
