#include "tray/frmTray.h"

#include <bitset>

#include "settings/Addresses.h"
#include "settings/ProgramState.h"
#include "settings/SettingKeys.h"
#include "tray/MinuteClock.h"
#include "tray/RetrieveAlerts.h"
#include "tray/TrayCommands.h"
#include "tray/TrayWindow.h"
#include "tray/modExplorerMonitor.h"
#include "tray/modTrayIcon.h"
#include "tray/modTrayMenu.h"
#include "win/MessageLoop.h"

namespace tray {
namespace {

void PerformClickAction(const std::string& action) {
    if (action == settings::kOpenOptionsAction)
        mnuOptions_Click();
    else if (action == settings::kViewNationalAction)
        mnuViewNationalSevereAlerts_Click();
    else if (action == settings::VisitMakerAction())
        mnuVisitQuillmark_Click();
}

// Events that arrived while the menu was open. A window opened from inside the menu's loop would
// get no input, and the code below that loop would not run until the window closes.
bool doubleClickPostponed = false;
std::bitset<kTimerCount + 1> postponedTimers;  // by identifier

void PerformDoubleClick() {
    doubleClickPostponed = IsTrayMenuOpen();
    if (!doubleClickPostponed) PerformClickAction(settings::State().doubleClickAction);
}

void OpenTrayMenu() {
    static int clicks = 0;
    const int thisClick = ++clicks;
    SetForegroundWindow(TrayWindow());
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
            RetrieveByCommand();
            break;
        case Timer::TimerUnload:
            ShutDown();
            break;
        case Timer::Timer1:
            PerformClickAction(settings::State().singleClickAction);
            break;
    }
}

// The minute clock also runs while the menu is open, and nothing may delay the shutdown.
bool MustWaitForMenu(Timer timer) {
    return IsTrayMenuOpen() && timer != Timer::TimerUpdate1 && timer != Timer::TimerUpdate2 &&
           timer != Timer::TimerUnload;
}

void OnTimer(Timer timer) {
    if (!IsTimerRunning(timer)) return;  // stopped while its message was in the queue
    StopTimer(timer);
    if (MustWaitForMenu(timer))
        postponedTimers.set(static_cast<std::size_t>(timer));
    else
        RunTimer(timer);
}

void OnMenuClosed() {
    BuildPostponedMenus();
    for (std::size_t i = 1; i <= kTimerCount; ++i)
        if (postponedTimers.test(i)) {
            postponedTimers.reset(i);
            RunTimer(static_cast<Timer>(i));
        }
    if (doubleClickPostponed) PerformDoubleClick();
}

LRESULT CALLBACK TrayProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case kTrayCallback:
            Form_MouseMove(static_cast<short>(LOWORD(lParam)));
            return 0;
        case WM_TIMER:
            if (wParam >= 1 && wParam <= kTimerCount) OnTimer(static_cast<Timer>(wParam));
            return 0;
        case WM_COMMAND:
            RunFixedCommand(LOWORD(wParam));
            return 0;
        case WM_QUERYENDSESSION:
        case WM_CLOSE:  // sent by the task manager; the window has no close box
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
            return DefWindowProcA(window, message, wParam, lParam);
    }
}

}  // namespace

HWND LoadTrayWindow() {
    LoadImages();
    const HWND window = CreateTrayWindow(TrayProcedure);
    StartExplorerMonitor(window);
    return window;
}

}  // namespace tray
