#include "options/frmOptions.h"

#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <array>
#include <string>

#include "assets/icons/icons.h"
#include "options/OptionsRules.h"
#include "options/Pages.h"
#include "options/resource.h"
#include "settings/IniOpenSave.h"
#include "settings/MessageBoxes.h"
#include "settings/ProgramState.h"
#include "win/Dialog.h"
#include "win/Files.h"
#include "win/LateFunctions.h"
#include "win/MessageLoop.h"
#include "win/Shell.h"

namespace options {
namespace {

struct PageEntry {
    const char* tabText;
    int frame;
    DLGPROC procedure;
    void (*load)(HWND page);
    void (*apply)(HWND page);
};
constexpr std::size_t kPageCount = static_cast<std::size_t>(Page::Count);
// In the order of the tabs, which is that of Page.
constexpr std::array<PageEntry, kPageCount> kPages{
    {{"General", IDD_GeneralFrame, GeneralProcedure, LoadGeneral, ApplyGeneral},
     {"Stations", IDD_StationsFrame, StationsProcedure, LoadStations, ApplyStations},
     {"Alert Filters", IDD_AlertFiltersFrame, AlertFiltersProcedure, LoadAlertFilters,
      ApplyAlertFilters},
     {"Tray Icon", IDD_TrayIconFrame, TrayIconProcedure, LoadTrayIcon, ApplyTrayIcon},
     {"Tray Alerts", IDD_TrayAlertsFrame, TrayAlertsProcedure, LoadTrayAlerts, ApplyTrayAlerts},
     {"Internet", IDD_InternetFrame, InternetProcedure, LoadInternet, ApplyInternet}}};
constexpr Page kApplyOrder[] = {Page::General,  Page::AlertFilters, Page::Internet,
                                Page::Stations, Page::TrayIcon,     Page::TrayAlerts};

// The state of the open dialog.
struct OptionsForm {
    HWND window = nullptr;
    std::array<HWND, kPageCount> frames{};
    std::array<bool, kPageCount> changed{};
    bool anythingChanged = false;
    bool loading = true;
    std::size_t activeFrame = 0;
};
OptionsForm form;

HWND Tabs() {
    return GetDlgItem(form.window, frmOptions_Tabs);
}

void AddTabs() {
    TCITEMA item{};
    item.mask = TCIF_TEXT;
    for (std::size_t i = 0; i < kPageCount; ++i) {
        item.pszText = const_cast<char*>(kPages[i].tabText);
        SendMessageA(Tabs(), TCM_INSERTITEMA, i, reinterpret_cast<LPARAM>(&item));
    }
}

// Replaces the frames, if there are any, by fresh ones.
void CreateFrames() {
    RECT room;
    GetWindowRect(Tabs(), &room);
    MapWindowPoints(nullptr, form.window, reinterpret_cast<POINT*>(&room), 2);
    SendMessageA(Tabs(), TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&room));
    for (std::size_t i = 0; i < kPageCount; ++i) {
        if (form.frames[i]) DestroyWindow(form.frames[i]);
        form.frames[i] =
            CreateDialogParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(kPages[i].frame),
                               form.window, kPages[i].procedure, 0);
        win::late::EnableThemeDialogTexture(form.frames[i], ETDT_ENABLETAB);
        // Behind the tabs in the Tab order, before the buttons.
        SetWindowPos(form.frames[i], Tabs(), room.left, room.top, room.right - room.left,
                     room.bottom - room.top, SWP_NOACTIVATE);
    }
}

// The page of a key; the first one for an unknown key.
std::size_t PageOf(const std::string& key) {
    for (std::size_t i = 0; i < kPageCount; ++i)
        if (PageKey(kPages[i].tabText) == key) return i;
    return 0;
}

void ShowPage(const std::string& tabText) {
    const std::string key = PageKey(tabText);
    form.activeFrame = PageOf(key);
    for (std::size_t i = 0; i < kPageCount; ++i)
        ShowWindow(form.frames[i], i == form.activeFrame ? SW_SHOW : SW_HIDE);
    settings::WriteSetting(settings::kLastOption, key);
}

void LoadFrame(std::size_t page) {
    kPages[page].load(form.frames[page]);
}

void LoadRemainingFrames(const std::string& shownKey) {
    for (std::size_t i = 0; i < kPageCount; ++i)
        if (form.window && i != PageOf(shownKey)) LoadFrame(i);
    form.loading = false;
    win::EnableControl(form.window, frmOptions_ApplyButton, false);
}

// Shows and loads the pages. As long as a setting cannot be read, nothing can be changed, and a
// timer calls this again: a page that was loaded without its settings would store their defaults.
// Reading may let messages run, and so may the end of the dialog come in between.
void LoadPages() {
    constexpr UINT_PTR retryTimer = 1;
    constexpr UINT retryMilliseconds = 1000;
    KillTimer(form.window, retryTimer);
    const std::size_t failedBefore = settings::CountFailedReads();
    const auto stored = settings::TryReadSetting(settings::kLastOption);
    if (!form.window) return;
    const std::size_t first = PageOf(stored.value_or(std::string()));
    const std::string key = PageKey(kPages[first].tabText);
    SendMessageA(Tabs(), TCM_SETCURSEL, first, 0);
    ShowPage(key);
    if (stored) {
        LoadFrame(first);
        LoadRemainingFrames(key);
        if (!form.window) return;
    }
    const bool isWhole = settings::CountFailedReads() == failedBefore;
    if (!isWhole) {
        form.loading = true;
        if (stored) CreateFrames();
        ShowPage(key);
        SetTimer(form.window, retryTimer, retryMilliseconds, nullptr);
    }
    for (const HWND frame : form.frames) EnableWindow(frame, isWhole);
}

void Initialise(HWND dialog) {
    form = OptionsForm();
    form.window = dialog;
    AddTabs();
    CreateFrames();
    win::EnableControl(form.window, frmOptions_ApplyButton, false);
    LoadPages();
}

void Apply() {
    if (!form.anythingChanged) return;
    for (const Page page : kApplyOrder) {
        const auto i = static_cast<std::size_t>(page);
        if (std::exchange(form.changed[i], false)) kPages[i].apply(form.frames[i]);
        if (!form.window) return;  // storing lets messages run: the dialog may be gone
    }
    if (IsStoreLocationChanged()) {
        ForgetStoreLocationChange();
        settings::ShowMessage(form.window,
                              RestartMessage(settings::State().storeFilesInProgramFolder),
                              MB_ICONINFORMATION, "Skyvane Live");
    }
    // What could not be stored, or was changed meanwhile, is left for a later Apply.
    form.anythingChanged =
        std::find(form.changed.begin(), form.changed.end(), true) != form.changed.end();
    win::EnableControl(form.window, frmOptions_ApplyButton, form.anythingChanged);
}

void Command1_Click() {
    win::PumpPendingMessages();
    if (form.window && IsWindowEnabled(GetDlgItem(form.window, frmOptions_ApplyButton))) Apply();
    if (form.window) win::EndModal(form.window);
}

void OpenHelp() {
    win::OpenInBrowser(form.window, settings::State().programFolder + "\\Help.html");
}

void SelectTab(std::size_t page) {
    SendMessageA(Tabs(), TCM_SETCURSEL, page, 0);
    ShowPage(kPages[page].tabText);
}

// Ctrl+Tab and Ctrl+Shift+Tab turn the pages.
bool TurnPage(const MSG& message) {
    if (message.message != WM_KEYDOWN || message.wParam != VK_TAB || GetKeyState(VK_CONTROL) >= 0 ||
        GetAncestor(message.hwnd, GA_ROOT) != form.window)
        return false;
    const std::size_t step = GetKeyState(VK_SHIFT) < 0 ? kPageCount - 1 : 1;
    SendMessageA(form.window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Tabs()), TRUE);
    SelectTab((form.activeFrame + step) % kPageCount);
    return true;
}

void RunCommand(int control) {
    switch (control) {
        case frmOptions_Command1:
            return Command1_Click();
        case frmOptions_Command2:
            return win::EndModal(form.window);
        case frmOptions_ApplyButton:
            return Apply();
        case frmOptions_Command8:
            return OpenHelp();
        case frmOptions_Command9: {  // the default button while a filter word is typed
            const HWND page = form.frames[static_cast<std::size_t>(Page::AlertFilters)];
            SendMessageA(page, WM_COMMAND, frmOptions_Command9, 0);
            return;
        }
        default:
            return;
    }
}

INT_PTR CALLBACK OptionsProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG:
            Initialise(dialog);
            return TRUE;
        case WM_TIMER:
            LoadPages();
            return TRUE;
        case WM_COMMAND:
            RunCommand(LOWORD(wParam));
            return TRUE;
        case WM_NOTIFY: {
            const auto* note = reinterpret_cast<const NMHDR*>(lParam);
            if (note->idFrom == frmOptions_Tabs && note->code == static_cast<UINT>(TCN_SELCHANGE))
                ShowPage(kPages[static_cast<std::size_t>(SendMessageA(Tabs(), TCM_GETCURSEL, 0, 0))]
                             .tabText);
            return TRUE;
        }
        case WM_HELP:
            OpenHelp();
            return TRUE;
        case WM_DESTROY:
            form = OptionsForm();
            return TRUE;
        default:
            return FALSE;
    }
}

}  // namespace

void MarkChanged(Page page) {
    if (form.loading) return;
    form.changed[static_cast<std::size_t>(page)] = true;
    form.anythingChanged = true;
    win::EnableControl(form.window, frmOptions_ApplyButton, true);
}

void ShowOptionsDialog() {
    if (form.window) {
        // Whoever wanted a certain page has stored its key; else it is that of the page shown.
        SelectTab(PageOf(settings::ReadSetting(settings::kLastOption)));
        SetForegroundWindow(GetLastActivePopup(form.window));
        return;
    }
    win::ShowModal({IDD_frmOptions, IDI_PROGRAM, ICC_TAB_CLASSES, OptionsProcedure}, nullptr,
                   TurnPage);
}

}  // namespace options
