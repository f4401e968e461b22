#include "options/Pages.h"
#include "options/PlainControls.h"
#include "options/resource.h"
#include "settings/Folders.h"
#include "settings/IniOpenSave.h"
#include "settings/ProgramState.h"
#include "win/Dialog.h"
#include "win/Files.h"
#include "win/ListItems.h"
#include "win/modPlaySound.h"

namespace options {

using namespace settings;

namespace {

constexpr PlainControl kControls[] = {{frmOptions_Check1, kDisplayTrayAlert, kTrue},
                                      {frmOptions_Combo11, kTrayAlertSound, kNoSound}};

void cmdTest_Click(HWND page) {
    const std::string path = SoundPath(ChosenEntry(page, frmOptions_Combo11));
    if (win::FileExists(path)) win::PlayAlertSound(path, win::kPlayOnce);
}

void EnablePreview(HWND page) {
    win::EnableControl(page, frmOptions_cmdTest, ChosenEntry(page, frmOptions_Combo11) != kNoSound);
}

INT_PTR CALLBACK HandleMessage(HWND page, UINT message, WPARAM wParam, LPARAM) {
    if (message != WM_COMMAND) return FALSE;
    if (wParam == MAKEWPARAM(frmOptions_Combo11, CBN_SELCHANGE)) EnablePreview(page);
    if (wParam == MAKEWPARAM(frmOptions_cmdTest, BN_CLICKED)) cmdTest_Click(page);
    MarkControlChange(page, kControls, wParam);
    return TRUE;
}

void Load(HWND page) {
    const win::ListControl combo = win::ComboBox(page, frmOptions_Combo11);
    win::AddItem(combo, kNoSound);
    for (const std::string& name : win::FindFileNames(SoundPath("*.wav")))
        win::AddItem(combo, name);
    // A missing sound stays the choice: the user may restore its file.
    const std::string stored = ReadSetting(kTrayAlertSound, kNoSound);
    if (win::FindItem(combo, stored) < 0) win::AddItem(combo, stored);
    LoadControls(page, kControls);
    EnablePreview(page);
}

void Apply(HWND page) {
    ApplyControls(page, kControls);
}

}  // namespace

const PageEntry kTrayAlertsPage{"Tray Alerts", IDD_TrayAlertsFrame, HandleMessage, Load, Apply};

}  // namespace options
