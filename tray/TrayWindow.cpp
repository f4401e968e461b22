#include "tray/TrayWindow.h"

#include <array>

#include "settings/Product.h"
#include "tray/resource.h"

namespace tray {
namespace {

HWND window = nullptr;

struct TimerState {
    UINT interval;  // milliseconds
    bool running = false;
};
// In the order of the enumerators.
std::array<TimerState, kTimerCount> timers{{{30000}, {60000}, {60000}, {1}, {1}, {200}}};

TimerState& StateOf(Timer timer) {
    return timers[static_cast<std::size_t>(timer) - 1];
}

UINT_PTR IdentifierOf(Timer timer) {
    return static_cast<UINT_PTR>(timer);
}

}  // namespace

HWND CreateTrayWindow(WNDPROC procedure) {
    constexpr char kClassName[] = "SkyvaneAlertsTray";
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszMenuName = MAKEINTRESOURCEA(IDR_TRAYMENUBAR);
    windowClass.lpszClassName = kClassName;
    RegisterClassA(&windowClass);
    window = CreateWindowExA(0, kClassName, SKYVANE_NAME, WS_OVERLAPPED, 0, 0, 0, 0, nullptr,
                             nullptr, windowClass.hInstance, nullptr);
    return window;
}

HWND TrayWindow() {
    return window;
}

void StartTimer(Timer timer) {
    StateOf(timer).running =
        SetTimer(window, IdentifierOf(timer), StateOf(timer).interval, nullptr);
}

void StopTimer(Timer timer) {
    KillTimer(window, IdentifierOf(timer));
    StateOf(timer).running = false;
}

bool IsTimerRunning(Timer timer) {
    return StateOf(timer).running;
}

void SetTimerInterval(Timer timer, UINT milliseconds) {
    StateOf(timer).interval = milliseconds;
}

}  // namespace tray
