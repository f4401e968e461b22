#include "tray/frmTray.h"

#include <array>

#include "settings/Catalogue.h"
#include "settings/Hosts.h"
#include "settings/ProgramState.h"
#include "tray/ClockRules.h"
#include "tray/RetrieveAlerts.h"
#include "tray/TrayCommands.h"
#include "tray/modExplorerMonitor.h"
#include "tray/modTrayIcon.h"
#include "tray/modTrayMenu.h"
#include "tray/resource.h"
#include "win/Messages.h"
#include "win/TextRules.h"

namespace tray {
namespace {

constexpr char kClassName[] = "SkyvaneAlertsTray";

HWND window = nullptr;

struct TimerState {
    UINT interval;  // milliseconds
    bool running = false;
};
std::array<TimerState, static_cast<std::size_t>(Timer::Count)> timers{
    {{30000}, {60000}, {60000}, {1}, {1}, {200}}};

TimerState& StateOf(Timer timer) {
    return timers[static_cast<std::size_t>(timer)];
}

UINT_PTR TimerIdentifier(Timer timer) {
    return static_cast<UINT_PTR>(timer) + 1;
}

void PerformClickAction(const std::string& action) {
    if (action == settings::kOpenOptionsAction)
        mnuOptions_Click();
    else if (action == settings::kViewNationalAction)
        mnuViewNationalSevereAlerts_Click();
    else if (action == settings::VisitMakerAction())
        mnuVisitQuillmark_Click();
}

void OpenTrayMenu() {
    static int clicks = 0;
    const int thisClick = ++clicks;
    SetForegroundWindow(window);
    win::PumpPendingMessages();
    if (thisClick != clicks) return;  // a newer click has shown the menu meanwhile
    if (settings::State().newAlertIconShown) {
        RefreshTrayIconImage();
        settings::State().newAlertIconShown = false;
    }
    ShowTrayMenu();
}

// The icon's callback: x carries the mouse message.
void Form_MouseMove(int x) {
    switch (x) {
        case WM_LBUTTONDOWN:
            if (!IsTimerRunning(Timer::Timer1)) StartTimer(Timer::Timer1);
            break;
        case WM_LBUTTONDBLCLK:
            if (!IsTimerRunning(Timer::Timer1)) break;  // the single-click action has run
            StopTimer(Timer::Timer1);
            PerformClickAction(settings::State().doubleClickAction);
            break;
        case WM_RBUTTONDOWN:
            OpenTrayMenu();
            break;
        default:
            break;
    }
}

void MinuteTick() {
    settings::ProgramState& state = settings::State();
    state.minuteCounter = win::AddInt16(state.minuteCounter, 1);
    if (state.minuteCounter <= IntervalMinutes(state.autoUpdateInterval) - 1) return;
    // Inside the open menu's loop a retrieval would take its mouse and keys: the next minute will
    // do.
    if (IsTrayMenuOpen()) return;
    RetrieveAlerts(false);
    state.minuteCounter = 0;
}

// The two halves of the minute clock alternate, and stop by themselves once the flag is cleared.
void UpdateTimer(Timer other) {
    MinuteTick();
    if (settings::State().automaticUpdate) StartTimer(other);
}

void OnTimer(Timer timer) {
    if (!IsTimerRunning(timer)) return;  // stopped while its message was on the way
    StopTimer(timer);
    switch (timer) {
        case Timer::TimerRetrieverDelay:
            if (IsTrayMenuOpen())
                StartTimer(timer);
            else
                RetrieveAlerts(false);
            break;
        case Timer::TimerUpdate1:
            UpdateTimer(Timer::TimerUpdate2);
            break;
        case Timer::TimerUpdate2:
            UpdateTimer(Timer::TimerUpdate1);
            break;
        case Timer::TimerFireEvent:
            RunFiredEvent();
            break;
        case Timer::TimerUnload:
            ShutDown();
            break;
        case Timer::Timer1:
            PerformClickAction(settings::State().singleClickAction);
            break;
        case Timer::Count:
            break;
    }
}

LRESULT CALLBACK TrayProcedure(HWND self, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case kTrayCallback:
            Form_MouseMove(static_cast<short>(LOWORD(lParam)));
            return 0;
        case WM_TIMER:
            if (wParam >= 1 && wParam <= timers.size()) OnTimer(static_cast<Timer>(wParam - 1));
            return 0;
        case WM_COMMAND:
            RunFixedCommand(LOWORD(wParam));
            return 0;
        case WM_QUERYENDSESSION:
        case WM_CLOSE:  // how the task manager asks; the window has no close box
            mnuExit_Click();
            return TRUE;
        case WM_ENDSESSION:  // Windows may end the process as soon as this returns
            if (wParam) ShutDown();
            return 0;
        case kRebuildAlertItems:
            BuildAlertsMenu();
            return 0;
        default:
            return DefWindowProcA(self, message, wParam, lParam);
    }
}

}  // namespace

HWND LoadTrayWindow() {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = TrayProcedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszMenuName = MAKEINTRESOURCEA(IDR_TRAYMENUBAR);
    windowClass.lpszClassName = kClassName;
    RegisterClassA(&windowClass);
    LoadBuiltInImages();
    window = CreateWindowExA(0, kClassName, win::kProgramName, WS_OVERLAPPED, 0, 0, 0, 0, nullptr,
                             nullptr, windowClass.hInstance, nullptr);
    StartExplorerMonitor(window);
    return window;
}

HWND TrayWindow() {
    return window;
}

void StartTimer(Timer timer) {
    StateOf(timer).running =
        SetTimer(window, TimerIdentifier(timer), StateOf(timer).interval, nullptr);
}

void StopTimer(Timer timer) {
    KillTimer(window, TimerIdentifier(timer));
    StateOf(timer).running = false;
}

bool IsTimerRunning(Timer timer) {
    return StateOf(timer).running;
}

void SetTimerInterval(Timer timer, UINT milliseconds) {
    StateOf(timer).interval = milliseconds;
}

void StartMinuteClock() {
    settings::ProgramState& state = settings::State();
    if (state.automaticUpdate) return;
    state.automaticUpdate = true;
    state.minuteCounter = 0;
    StartTimer(Timer::TimerUpdate1);
}

void StopMinuteClock() {
    settings::State().automaticUpdate = false;
    StopTimer(Timer::TimerUpdate1);
    StopTimer(Timer::TimerUpdate2);
}

}  // namespace tray
