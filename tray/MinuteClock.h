#pragma once

#include "tray/frmTray.h"

// The clock of automatic updates: one tick a minute, a retrieval when the chosen interval is over.
namespace tray {

// Switches the clock on, with its count reset, or off; a clock that already runs goes on.
void StartMinuteClock();
void StopMinuteClock();

// Handles the timer of one half of the clock.
void TickMinuteClock(Timer half);

// The computer has woken from sleep: the next tick checks how long that took.
void NoteSleep();

}  // namespace tray
