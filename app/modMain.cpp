#include <windows.h>

#include "app/Startup.h"
#include "settings/ProgramState.h"
#include "tray/TrayCommands.h"
#include "tray/frmTray.h"
#include "win/CodePage.h"
#include "win/CommandLine.h"
#include "win/NeverDestroyed.h"
#include "win/Process.h"

namespace {

// Whether this is the first copy in this session. The mutex exists as long as the process.
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
    // A second copy exits silently and does not affect the first one.
    const std::string commandLine = win::FromWide(GetCommandLineW());
    if (settings::State().isFirstCopy)
        app::StartUp(win::ArgumentText(commandLine, "SVAlerts.exe"));
    else
        tray::mnuExit_Click();
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    tray::ShutDown();
}
