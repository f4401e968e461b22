#include "tray/frmTray.h"

#include <array>
#include <bitset>

#include "settings/SettingKeys.h"
#include "settings/Hosts.h"
#include "settings/ProgramState.h"
#include "tray/MinuteClock.h"
#include "tray/RetrieveAlerts.h"
#include "tray/TrayCommands.h"
#include "tray/modExplorerMonitor.h"
#include "tray/modTrayIcon.h"
#include "tray/modTrayMenu.h"
#include "tray/resource.h"
#include "win/Messages.h"

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

// What fired while the menu was open. Inside the menu's loop a new window would get no input and
// nothing below that loop would go on.
bool doubleClickPostponed = false;
std::bitset<static_cast<std::size_t>(Timer::Count)> postponedTimers;

void PerformDoubleClick() {
    doubleClickPostponed = IsTrayMenuOpen();
    if (!doubleClickPostponed) PerformClickAction(settings::State().doubleClickAction);
}

void OpenTrayMenu() {
    static int clicks = 0;
    const int thisClick = ++clicks;
    SetForegroundWindow(window);
    win::PumpPendingMessages();
    LoadUnreadStations();
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
            PerformDoubleClick();
            break;
        case WM_RBUTTONDOWN:
            OpenTrayMenu();
            break;
        default:
            break;
    }
}

void RunTimer(Timer timer) {
    switch (timer) {
        case Timer::TimerRetrieverDelay:
            RetrieveAlerts(false);
            break;
        case Timer::TimerUpdate1:
        case Timer::TimerUpdate2:
            TickMinuteClock(timer);
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

// The clock counts its minutes under the open menu too, and nothing may keep the program from
// ending.
bool MustWaitForMenu(Timer timer) {
    return IsTrayMenuOpen() && timer != Timer::TimerUpdate1 && timer != Timer::TimerUpdate2 &&
           timer != Timer::TimerUnload;
}

void OnTimer(Timer timer) {
    if (!IsTimerRunning(timer)) return;  // stopped while its message was on the way
    StopTimer(timer);
    if (MustWaitForMenu(timer))
        postponedTimers.set(static_cast<std::size_t>(timer));
    else
        RunTimer(timer);
}

void OnMenuClosed() {
    BuildPostponedMenus();
    for (std::size_t i = 0; i < postponedTimers.size(); ++i)
        if (postponedTimers.test(i)) {
            postponedTimers.reset(i);
            RunTimer(static_cast<Timer>(i));
        }
    if (doubleClickPostponed) PerformDoubleClick();
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
        case WM_POWERBROADCAST:
            if (wParam == PBT_APMRESUMEAUTOMATIC) NoteSleep();
            return TRUE;
        case kTrayMenuClosed:
            OnMenuClosed();
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

}  // namespace tray
