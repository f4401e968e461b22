#pragma once
#include <windows.h>

#include <cstdint>

// The hidden tray window: it receives the icon's mouse messages, owns the popup menu and carries
// the six timers that drive the program.
namespace tray {

// The icon's callback message: its mouse messages arrive as mouse moves whose X is the message
// number.
inline constexpr UINT kTrayCallback = WM_MOUSEMOVE;

// The timers, all one-shot, with their built-in intervals in milliseconds.
enum class Timer : std::uint8_t {
    TimerRetrieverDelay,  // 30000: the delayed first retrieval
    TimerUpdate2,         // 60000: one half of the minute clock
    TimerUpdate1,         // 60000: the other half
    TimerFireEvent,       // 1: a command to run after the current event has returned
    TimerUnload,          // 1: shutdown
    Timer1,               // 200, or the system's double-click time: single click or double click
    Count
};

// Makes the window with its menu and pictures and starts the watch over the taskbar. Null when the
// window cannot be made.
HWND LoadTrayWindow();

// The tray window, null before it is made.
HWND TrayWindow();

void StartTimer(Timer timer);
void StopTimer(Timer timer);
bool IsTimerRunning(Timer timer);

// The interval that the timer starts with from now on, in milliseconds.
void SetTimerInterval(Timer timer, UINT milliseconds);

}  // namespace tray
