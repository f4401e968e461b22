#include <utility>

#include "options/Pages.h"
#include "options/PlainControls.h"
#include "options/resource.h"
#include "settings/Folders.h"
#include "settings/MessageBoxes.h"
#include "settings/ProgramState.h"
#include "settings/modRegistry.h"
#include "tray/MinuteClock.h"
#include "win/Dialog.h"
#include "win/ListItems.h"

namespace options {

using namespace settings;

namespace {

constexpr PlainControl kControls[] = {
    {frmOptions_Check4, kRetrieveAlertsOnStartup, kFalse},
    {frmOptions_Check5, kPause30SecondsOnStartup, kFalse},
    {frmOptions_Check3, kStartWithWindows, kFalse},
    {frmOptions_Check28, kStoreFilesInProgramFolder, kFalse},
    {frmOptions_Combo2, kAutoUpdateInterval, "", &ProgramState::autoUpdateInterval}};

// Whether the last click on Check28 chose another location than the one in effect at that moment.
bool storeLocationChanged = false;

void ApplyStartWithWindows(bool start) {
    if (start)
        RegistrySetValue(kCurrentUser, kRunKey, kRunValue, State().programFolder + "\\SVAlerts.exe",
                         kRegistryText);
    else
        RegistryDeleteValue(kCurrentUser, kRunKey, kRunValue);
}

// Whether the user has switched off the start with Windows in the Task Manager or the Settings,
// which overrides the Run key.
bool IsStartSwitchedOff() {
    const std::string state = RegistryReadValue(kCurrentUser, kStartupListKey, kRunValue);
    return !state.empty() && (state[0] & 1);
}

// Shows the line below Check3 that says so.
void ShowStartSwitchedOff(HWND page) {
    const bool show = win::IsChecked(page, frmOptions_Check3) && IsStartSwitchedOff();
    ShowWindow(GetDlgItem(page, frmOptions_SwitchedOff), show ? SW_SHOW : SW_HIDE);
}

void ApplyInterval(const std::string& interval) {
    if (interval == kNever)
        tray::StopMinuteClock();
    else if (!interval.empty())
        tray::StartMinuteClock();
}

INT_PTR CALLBACK HandleMessage(HWND page, UINT message, WPARAM wParam, LPARAM) {
    if (message != WM_COMMAND) return FALSE;
    if (wParam == MAKEWPARAM(frmOptions_Check28, BN_CLICKED))
        storeLocationChanged =
            win::IsChecked(page, frmOptions_Check28) != State().storeFilesInProgramFolder;
    if (wParam == MAKEWPARAM(frmOptions_Check3, BN_CLICKED)) ShowStartSwitchedOff(page);
    MarkControlChange(page, kControls, wParam);
    return TRUE;
}

void Load(HWND page) {
    storeLocationChanged = false;
    const win::ListControl combo = win::ComboBox(page, frmOptions_Combo2);
    for (const Interval& interval : kIntervals) win::AddItem(combo, std::string(interval.caption));
    LoadControls(page, kControls);
    ShowStartSwitchedOff(page);
}

void Apply(HWND page) {
    ApplyControls(page, kControls);
    ApplyStartWithWindows(win::IsChecked(page, frmOptions_Check3));
    ChooseDataFolder(win::IsChecked(page, frmOptions_Check28));
    ApplyInterval(ChosenEntry(page, frmOptions_Combo2));
    MakeDataFolder();
}

}  // namespace

const PageEntry kGeneralPage{"General", IDD_GeneralFrame, HandleMessage, Load, Apply};

void ShowRestartMessage(HWND dialog) {
    if (!std::exchange(storeLocationChanged, false)) return;
    // The message names the sibling product, on purpose.
    settings::ShowMessage(
        dialog,
        std::string(
            "Skyvane Live must be restarted in order to make the necessary changes to begin "
            "storing your Skyvane Live user files in ") +
            (State().storeFilesInProgramFolder ? "the Skyvane Live program folder."
                                               : "your Windows user profile."),
        MB_ICONINFORMATION, "Skyvane Live");
}

}  // namespace options
