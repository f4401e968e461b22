#include "options/Pages.h"
#include "options/resource.h"
#include "settings/Folders.h"
#include "settings/IniOpenSave.h"
#include "settings/ProgramState.h"
#include "settings/modRegistry.h"
#include "tray/MinuteClock.h"
#include "win/ListItems.h"
#include "win/Dialog.h"

namespace options {

using namespace settings;

namespace {

// Whether Check28 says another location than the one that was in effect when it was last clicked.
bool storeLocationChanged = false;

struct CheckSetting {
    int control;
    const Setting& setting;
};
constexpr CheckSetting kChecks[] = {{frmOptions_Check4, kRetrieveAlertsOnStartup},
                                    {frmOptions_Check5, kPause30SecondsOnStartup},
                                    {frmOptions_Check3, kStartWithWindows},
                                    {frmOptions_Check28, kStoreFilesInProgramFolder}};

void ApplyStartWithWindows(bool start) {
    if (start)
        RegistrySetValue(kCurrentUser, kRunKey, kRunValue, State().programFolder + "\\SVAlerts.exe",
                         kRegistryText);
    else
        RegistryDeleteValue(kCurrentUser, kRunKey, kRunValue);
}

void ApplyInterval(const std::string& interval) {
    if (interval.empty()) return;  // the stored one is none of the choices and stays
    WriteSetting(kAutoUpdateInterval, interval);
    State().autoUpdateInterval = interval;
    if (interval == kNever)
        tray::StopMinuteClock();
    else
        tray::StartMinuteClock();
}

}  // namespace

INT_PTR CALLBACK GeneralProcedure(HWND page, UINT message, WPARAM wParam, LPARAM) {
    if (message != WM_COMMAND) return FALSE;
    const int control = LOWORD(wParam);
    const UINT event = HIWORD(wParam);
    if (control == frmOptions_Check28 && event == BN_CLICKED)
        storeLocationChanged = win::IsChecked(page, control) != State().storeFilesInProgramFolder;
    if ((control == frmOptions_Combo2 && event == CBN_SELCHANGE) ||
        (control != frmOptions_Combo2 && event == BN_CLICKED))
        MarkChanged(Page::General);
    return TRUE;
}

void LoadGeneral(HWND page) {
    storeLocationChanged = false;
    for (const CheckSetting& check : kChecks)
        win::SetChecked(page, check.control, ReadFlag(check.setting));
    const win::ListControl combo = win::ComboBox(page, frmOptions_Combo2);
    for (const Interval& interval : kIntervals) win::AddItem(combo, std::string(interval.caption));
    win::SelectItem(
        combo, win::FindItem(combo, ReadSetting(kAutoUpdateInterval, State().autoUpdateInterval)));
}

void ApplyGeneral(HWND page) {
    for (const CheckSetting& check : kChecks)
        WriteFlag(check.setting, win::IsChecked(page, check.control));
    ApplyStartWithWindows(win::IsChecked(page, frmOptions_Check3));
    ChooseDataFolder(win::IsChecked(page, frmOptions_Check28));
    const win::ListControl combo = win::ComboBox(page, frmOptions_Combo2);
    ApplyInterval(win::ItemText(combo, win::SelectedItem(combo)));
    MakeDataFolder();
}

bool IsStoreLocationChanged() {
    return storeLocationChanged;
}

void ForgetStoreLocationChange() {
    storeLocationChanged = false;
}

}  // namespace options
