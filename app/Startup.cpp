#include "app/Startup.h"

#include <windows.h>

#include "app/StartupValues.h"
#include "settings/Folders.h"
#include "settings/IniOpenSave.h"
#include "settings/MessageBoxes.h"
#include "settings/Product.h"
#include "settings/ProgramState.h"
#include "settings/modRegistry.h"
#include "stations/StationList.h"
#include "tray/MinuteClock.h"
#include "tray/OptionsDialog.h"
#include "tray/RetrieveAlerts.h"
#include "tray/TrayWindow.h"
#include "tray/modTrayIcon.h"
#include "tray/modTrayMenu.h"
#include "win/Files.h"
#include "win/Process.h"

namespace app {
namespace {

using namespace settings;

void UseIniFile(bool defaultUser) {
    UseIni = kUseIniStore;
    IniUserName = defaultUser ? std::string() : win::Environment("Username");
    if (IniUserName.empty()) IniUserName = "Default";
}

void ChooseStore(std::string_view arguments) {
    const StoreSwitches switches = ReadStoreSwitches(arguments);
    if (switches.useIni) {
        UseIniFile(switches.defaultUser);
    } else {
        WriteSetting(kRegTest, "Test");
        if (ReadSetting(kRegTest) == "Test")
            WriteSetting(kRegTest, "");
        else
            UseIniFile(false);
    }
    // The read handles messages while another program locks the INI file.
    const char* const useIni = UseIni == kUseIniStore ? kTrue : kFalse;
    if (ReadSetting(kUseIniRecord) != useIni) WriteSetting(kUseIniRecord, useIni);
    ExportStoreChoice();
}

void SetUpFolders() {
    ChooseDataFolder(ReadFlag(kStoreFilesInProgramFolder));
    MakeDataFolder();
    RefreshDataFolder();
}

void ReadTraySettings() {
    ProgramState& state = State();
    state.singleClickAction = ReadSetting(kSingleClickAction, kStartupSingleClickAction);
    state.doubleClickAction = ReadSetting(kDoubleClickAction, kStartupDoubleClickAction);
    state.autoUpdateInterval = ReadSetting(kAutoUpdateInterval, kStartupInterval);
    if (state.autoUpdateInterval != kNever) tray::StartMinuteClock();
    state.oldAlerts = ReadSetting(kOldAlerts);
    WriteSetting(kVersion, SKYVANE_VERSION);
    const std::string speed =
        RegistryReadValue(kCurrentUser, "Control Panel\\Mouse", "DoubleClickSpeed");
    if (const auto interval = ClickInterval(speed))
        tray::SetTimerInterval(tray::Timer::Timer1, *interval);
}

void LoadChosenImage(const Setting& setting, tray::TrayImage& image) {
    const std::string path = ReadSetting(setting);
    if (!path.empty() && win::FileExists(path)) tray::UseIconFile(image, path);
}

void RetrieveAtStart() {
    if (!ReadFlag(kRetrieveAlertsOnStartup)) return;
    if (ReadFlag(kPause30SecondsOnStartup))
        tray::StartTimer(tray::Timer::TimerRetrieverDelay);
    else {
        tray::RetrieveAlerts(false);
        tray::WaitForRetrieval();
    }
}

void CountRun() {
    const auto runs = TryReadSetting(kRuns);
    if (!runs) return;  // unreadable: this may not be the first run
    if (!runs->empty()) {
        if (const auto next = NextRunCount(*runs)) WriteSetting(kRuns, *next);
        return;
    }
    WriteSetting(kRuns, "1");
    if (settings::Confirm(nullptr,
                          "It looks like this is your first time using Skyvane Alerts.\r\n\r\n"
                          "Would you like to set up the Options now?",
                          MB_ICONINFORMATION))
        tray::ShowOptions();
}

// The mutex only shows other processes that the program is running.
void MarkAsRunning() {
    win::NamedMutex mutex = win::MakeNamedMutex("SkyvaneAlerts");
    if (!mutex.existed) State().runningMutex = std::move(mutex.handle);
}

}  // namespace

void StartUp(std::string_view arguments) {
    State().programFolder = win::ExecutableFolder();
    ChooseStore(arguments);
    SetUpFolders();
    ReadTraySettings();
    LoadChosenImage(kIcon, tray::Images().ImageIcon);
    LoadChosenImage(kIcon2, tray::Images().ImageIcon2);
    tray::AddTrayIcon();
    stations::LoadStationList();
    tray::SetUpTrayMenus();
    tray::BuildStationMenu();
    RetrieveAtStart();
    tray::BuildAlertsMenu();
    CountRun();
    MarkAsRunning();
}

}  // namespace app
