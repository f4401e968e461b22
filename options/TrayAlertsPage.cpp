#include "options/Pages.h"
#include "options/resource.h"
#include "settings/Folders.h"
#include "settings/IniOpenSave.h"
#include "settings/ProgramState.h"
#include "win/ListItems.h"
#include "win/Dialog.h"
#include "win/Files.h"
#include "win/modPlaySound.h"

namespace options {

using namespace settings;

namespace {

std::string ChosenSound(HWND page) {
    const win::ListControl combo = win::ComboBox(page, frmOptions_Combo11);
    return win::ItemText(combo, win::SelectedItem(combo));
}

void cmdTest_Click(HWND page) {
    const std::string path = SoundPath(ChosenSound(page));
    if (win::FileExists(path)) win::PlayAlertSound(path, win::kPlayOnce);
}

}  // namespace

INT_PTR CALLBACK TrayAlertsProcedure(HWND page, UINT message, WPARAM wParam, LPARAM) {
    if (message != WM_COMMAND) return FALSE;
    const UINT event = HIWORD(wParam);
    switch (LOWORD(wParam)) {
        case frmOptions_Check1:
            if (event == BN_CLICKED) MarkChanged(Page::TrayAlerts);
            return TRUE;
        case frmOptions_Combo11:
            if (event == CBN_SELCHANGE) MarkChanged(Page::TrayAlerts);
            return TRUE;
        case frmOptions_cmdTest:
            if (event == BN_CLICKED) cmdTest_Click(page);
            return TRUE;
        default:
            return FALSE;
    }
}

void LoadTrayAlerts(HWND page) {
    win::SetChecked(page, frmOptions_Check1, ReadSetting(kDisplayTrayAlert) != kFalse);
    const win::ListControl combo = win::ComboBox(page, frmOptions_Combo11);
    win::AddItem(combo, kNoSound);
    for (const std::string& name : win::FindFileNames(SoundPath("*.wav")))
        win::AddItem(combo, name);
    const std::string stored = ReadSetting(kTrayAlertSound, kNoSound);
    const int index = win::FindItem(combo, stored);
    // A sound that is gone stays the choice: the user may bring it back.
    win::SelectItem(combo, index < 0 ? win::AddItem(combo, stored) : index);
}

void ApplyTrayAlerts(HWND page) {
    WriteFlag(kDisplayTrayAlert, win::IsChecked(page, frmOptions_Check1));
    WriteSetting(kTrayAlertSound, ChosenSound(page));
}

}  // namespace options
