#pragma once
#include <windows.h>

#include <cstddef>
#include <cstdint>

// The handle of the hidden tray window, its messages and its six timers. The icon, the menu and the
// commands build on this file; frmTray handles the messages.
namespace tray {

// The icon's callback message; the low word of lParam is the mouse message.
inline constexpr UINT kTrayCallback = WM_MOUSEMOVE;
// Posted after the popup menu has closed, and after the command of the chosen item.
inline constexpr UINT kTrayMenuClosed = WM_APP + 1;

// The timers, all one-shot. The value is the timer's identifier in WM_TIMER.
enum class Timer : std::uint8_t {
    TimerRetrieverDelay = 1,  // delays the first retrieval
    TimerUpdate2,             // one half of the minute clock
    TimerUpdate1,             // the other half
    TimerFireEvent,           // runs a command after the current event has returned
    TimerUnload,              // shuts the program down after the current event has returned
    Timer1                    // tells a single click from a double click
};
inline constexpr std::size_t kTimerCount = 6;

// Creates the window with its menu bar; `procedure` handles its messages. Returns null on failure.
HWND CreateTrayWindow(WNDPROC procedure);

// The tray window; null before it is created.
HWND TrayWindow();

// Starts the timer with its interval; a running timer starts over.
void StartTimer(Timer timer);
void StopTimer(Timer timer);
bool IsTimerRunning(Timer timer);

// Sets the interval, in milliseconds, for later calls of StartTimer.
void SetTimerInterval(Timer timer, UINT milliseconds);

}  // namespace tray
