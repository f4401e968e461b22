#include <windows.h>

#include "app/Startup.h"
#include "settings/ProgramState.h"
#include "tray/TrayCommands.h"
#include "tray/frmTray.h"
#include "win/CommandLine.h"
#include "win/Hardening.h"
#include "win/NamedMutex.h"
#include "win/NeverDestroyed.h"

namespace {

// True in the first copy of this session; the handle marks it as long as the process lives.
bool IsFirstCopy() {
    static win::NamedMutex& mark =
        win::NeverDestroyed<win::NamedMutex>(win::MakeNamedMutex("Local\\SkyvaneAlerts.FirstCopy"));
    return !mark.existed;
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    win::HardenProcess();
    settings::State().isFirstCopy = IsFirstCopy();
    if (!tray::LoadTrayWindow()) return 1;
    // A second copy ends by the Exit command, in silence, and leaves the first one alone.
    if (settings::State().isFirstCopy)
        app::StartUp(win::ArgumentText(GetCommandLineA(), "SVAlerts.exe"));
    else
        tray::mnuExit_Click();
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    tray::ShutDown();
}
