#include <windows.h>

#include "app/Startup.h"
#include "tray/TrayCommands.h"
#include "tray/frmTray.h"
#include "win/Handle.h"
#include "win/Hardening.h"
#include "win/Messages.h"

namespace {

// True in the first copy of this session; the handle marks it as long as the process lives.
bool IsFirstCopy() {
    static win::KernelHandle mark;
    const HANDLE mutex = CreateMutexA(nullptr, FALSE, "Local\\SkyvaneAlerts.FirstCopy");
    // Read at once: whatever runs in between may change it.
    const bool existed = GetLastError() == ERROR_ALREADY_EXISTS;
    mark.Reset(mutex);
    return !existed;
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR commandLine, int) {
    win::HardenProcess();
    const bool isFirstCopy = IsFirstCopy();
    if (!tray::LoadTrayWindow()) return 1;
    // A second copy ends by the Exit command, in silence, and leaves the first one alone.
    if (isFirstCopy)
        app::StartUp(commandLine);
    else
        tray::mnuExit_Click();
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return 0;
}
