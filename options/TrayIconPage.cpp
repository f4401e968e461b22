#include "assets/icons/icons.h"
#include "options/Pages.h"
#include "options/resource.h"
#include "settings/Addresses.h"
#include "settings/IniOpenSave.h"
#include "settings/ProgramState.h"
#include "tray/modTrayIcon.h"
#include "win/ListItems.h"
#include "win/Dialog.h"
#include "win/Files.h"
#include "win/Images.h"
#include "win/modOpenDialog.h"
#include "win/NeverDestroyed.h"

namespace options {

using namespace settings;

namespace {

// One of the two icons: its controls, its setting, its built-in picture, and what is pending.
struct IconChoice {
    int preview;
    const Setting& setting;
    int builtIn;
    win::Icon shown = {};
    std::string pending = {};
    bool changed = false;
};
IconChoice& normal = win::NeverDestroyed<IconChoice>(frmOptions_Image4, kIcon, IDI_NORMAL);
IconChoice& alert = win::NeverDestroyed<IconChoice>(frmOptions_Image8, kIcon2, IDI_NEWALERTS);

void ShowPreview(HWND page, IconChoice& choice, win::Icon icon) {
    SendDlgItemMessageA(page, choice.preview, STM_SETICON, reinterpret_cast<WPARAM>(icon.Get()), 0);
    choice.shown = std::move(icon);
}

void LoadChoice(HWND page, IconChoice& choice) {
    choice.changed = false;
    choice.pending = ReadSetting(choice.setting);
    win::Icon icon;
    if (win::FileExists(choice.pending))
        icon = win::LoadIconFile(choice.pending, win::LargeIconSize());
    if (!icon) icon = win::LoadIconResource(choice.builtIn, win::LargeIconSize());
    ShowPreview(page, choice, std::move(icon));
}

void SetPending(HWND page, IconChoice& choice, const std::string& value, win::Icon icon) {
    ShowPreview(page, choice, std::move(icon));
    choice.pending = value;
    choice.changed = true;
    MarkChanged(Page::TrayIcon);
}

void SelectIcon(HWND page, IconChoice& choice) {
    const std::string path = win::ShowOpenFileDialog(
        GetParent(page), {"Icon Files (*.ico)|*.ICO", "Select Icon", State().programFolder});
    if (path.empty()) return;
    // A file that holds no icon leaves the preview and the pending value as they were.
    if (win::Icon icon = win::LoadIconFile(path, win::LargeIconSize()))
        SetPending(page, choice, path, std::move(icon));
}

void ResetIcon(HWND page, IconChoice& choice) {
    SetPending(page, choice, kDefaultIcon,
               win::LoadIconResource(choice.builtIn, win::LargeIconSize()));
}

// Stores a changed choice and puts its picture in place of the tray's.
bool ApplyChoice(IconChoice& choice, win::Icon& trayImage) {
    if (!choice.changed) return false;
    choice.changed = false;
    WriteSetting(choice.setting, choice.pending);
    if (choice.pending == kDefaultIcon)
        trayImage = win::LoadIconResource(choice.builtIn, win::SmallIconSize());
    else
        tray::ReplaceImage(trayImage, choice.pending);
    return true;
}

void FillActions(HWND page, int control, const Setting& setting, const std::string& inEffect) {
    const win::ListControl combo = win::ComboBox(page, control);
    for (const std::string& action : {std::string(kNoAction), std::string(kViewNationalAction),
                                      std::string(kOpenOptionsAction), VisitMakerAction()})
        win::AddItem(combo, action);
    win::SelectItem(combo, win::FindItem(combo, ReadSetting(setting, inEffect)));
}

void ApplyAction(HWND page, int control, const Setting& setting, std::string& inEffect) {
    const win::ListControl combo = win::ComboBox(page, control);
    const std::string action = win::ItemText(combo, win::SelectedItem(combo));
    if (action.empty()) return;  // the stored one is none of the choices and stays
    WriteSetting(setting, action);
    inEffect = action;
}

}  // namespace

INT_PTR CALLBACK TrayIconProcedure(HWND page, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_DESTROY) {
        normal.shown.Reset();
        alert.shown.Reset();
    }
    if (message != WM_COMMAND) return FALSE;
    switch (LOWORD(wParam)) {
        case frmOptions_Command3:
            SelectIcon(page, normal);
            return TRUE;
        case frmOptions_Command4:
            ResetIcon(page, normal);
            return TRUE;
        case frmOptions_Command12:
            SelectIcon(page, alert);
            return TRUE;
        case frmOptions_Command11:
            ResetIcon(page, alert);
            return TRUE;
        case frmOptions_SingleClickCombo:
        case frmOptions_DoubleClickCombo:
            if (HIWORD(wParam) == CBN_SELCHANGE) MarkChanged(Page::TrayIcon);
            return TRUE;
        default:
            return FALSE;
    }
}

void LoadTrayIcon(HWND page) {
    LoadChoice(page, normal);
    LoadChoice(page, alert);
    FillActions(page, frmOptions_SingleClickCombo, kSingleClickAction, State().singleClickAction);
    FillActions(page, frmOptions_DoubleClickCombo, kDoubleClickAction, State().doubleClickAction);
}

void ApplyTrayIcon(HWND page) {
    if (ApplyChoice(normal, tray::Images().ImageIcon)) tray::RefreshTrayIconImage();
    if (ApplyChoice(alert, tray::Images().ImageIcon2) && State().newAlertIconShown)
        tray::ShowNewAlertImage();
    ApplyAction(page, frmOptions_SingleClickCombo, kSingleClickAction, State().singleClickAction);
    ApplyAction(page, frmOptions_DoubleClickCombo, kDoubleClickAction, State().doubleClickAction);
}

}  // namespace options
