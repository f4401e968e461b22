#include "options/Pages.h"
#include "options/PlainControls.h"
#include "options/resource.h"
#include "settings/Addresses.h"
#include "settings/IniOpenSave.h"
#include "settings/ProgramState.h"
#include "tray/modTrayIcon.h"
#include "win/Dpi.h"
#include "win/Files.h"
#include "win/Images.h"
#include "win/ListItems.h"
#include "win/NeverDestroyed.h"
#include "win/modOpenDialog.h"

namespace options {

using namespace settings;

namespace {

constexpr PlainControl kControls[] = {
    {frmOptions_SingleClickCombo, kSingleClickAction, "", &ProgramState::singleClickAction},
    {frmOptions_DoubleClickCombo, kDoubleClickAction, "", &ProgramState::doubleClickAction}};

// One of the two icons: its preview control, its setting, its built-in picture, and the pending
// choice.
struct IconChoice {
    int preview;
    const Setting& setting;
    int builtIn;
    win::Icon shown = {};
    std::string pending = {};
    bool changed = false;
};
IconChoice& normal = win::NeverDestroyed<IconChoice>(frmOptions_Image4, kIcon, tray::kNormalIcon);
IconChoice& alert =
    win::NeverDestroyed<IconChoice>(frmOptions_Image8, kIcon2, tray::kNewAlertsIcon);

int PreviewSize(HWND page) {
    return win::LargeIconSize(win::WindowDpi(page));
}

void ShowPreview(HWND page, IconChoice& choice, win::Icon icon) {
    SendDlgItemMessageW(page, choice.preview, STM_SETICON, reinterpret_cast<WPARAM>(icon.Get()), 0);
    choice.shown = std::move(icon);
}

// Shows the pending choice, or the built-in picture if it cannot be loaded.
void ShowPending(HWND page, IconChoice& choice) {
    win::Icon icon;
    if (win::FileExists(choice.pending))
        icon = win::LoadIconFile(choice.pending, PreviewSize(page));
    if (!icon) icon = win::LoadIconResource(choice.builtIn, PreviewSize(page));
    ShowPreview(page, choice, std::move(icon));
}

void LoadChoice(HWND page, IconChoice& choice) {
    choice.changed = false;
    choice.pending = ReadSetting(choice.setting);
    ShowPending(page, choice);
}

void SetPending(HWND page, IconChoice& choice, const std::string& value) {
    choice.pending = value;
    ShowPending(page, choice);
    choice.changed = true;
    MarkChanged(page);
}

void SelectIcon(HWND page, IconChoice& choice) {
    const std::string path = win::ShowOpenFileDialog(
        GetParent(page), {"Icon Files (*.ico)|*.ICO", "Select Icon", State().programFolder});
    if (path.empty()) return;
    // A file without an icon leaves the preview and the pending value unchanged.
    if (win::LoadIconFile(path, PreviewSize(page))) SetPending(page, choice, path);
}

void ResetIcon(HWND page, IconChoice& choice) {
    SetPending(page, choice, kDefaultIcon);
}

// Stores a changed choice and replaces the tray's picture. Returns whether the choice had changed.
bool ApplyChoice(IconChoice& choice, tray::TrayImage& trayImage) {
    if (!choice.changed) return false;
    choice.changed = false;
    WriteSetting(choice.setting, choice.pending);
    if (choice.pending == kDefaultIcon)
        tray::UseBuiltInPicture(trayImage);
    else
        tray::UseIconFile(trayImage, choice.pending);
    return true;
}

void FillActions(HWND page, int control) {
    const win::ListControl combo = win::ComboBox(page, control);
    for (const std::string& action : {std::string(kNoAction), std::string(kViewNationalAction),
                                      std::string(kOpenOptionsAction), VisitMakerAction()})
        win::AddItem(combo, action);
}

void RunCommand(HWND page, int control) {
    switch (control) {
        case frmOptions_Command3:
            return SelectIcon(page, normal);
        case frmOptions_Command4:
            return ResetIcon(page, normal);
        case frmOptions_Command12:
            return SelectIcon(page, alert);
        case frmOptions_Command11:
            return ResetIcon(page, alert);
        default:
            return;
    }
}

INT_PTR CALLBACK HandleMessage(HWND page, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_DESTROY) {
        normal.shown.Reset();
        alert.shown.Reset();
    }
    if (message == WM_DPICHANGED_AFTERPARENT) {
        ShowPending(page, normal);
        ShowPending(page, alert);
    }
    if (message != WM_COMMAND) return FALSE;
    RunCommand(page, LOWORD(wParam));
    MarkControlChange(page, kControls, wParam);
    return TRUE;
}

void Load(HWND page) {
    LoadChoice(page, normal);
    LoadChoice(page, alert);
    FillActions(page, frmOptions_SingleClickCombo);
    FillActions(page, frmOptions_DoubleClickCombo);
    LoadControls(page, kControls);
}

void Apply(HWND page) {
    if (ApplyChoice(normal, tray::Images().ImageIcon)) tray::RefreshTrayIconImage();
    if (ApplyChoice(alert, tray::Images().ImageIcon2) && State().newAlertIconShown)
        tray::ShowNewAlertImage();
    ApplyControls(page, kControls);
}

}  // namespace

const PageEntry kTrayIconPage{"Tray Icon", IDD_TrayIconFrame, HandleMessage, Load, Apply};

}  // namespace options
