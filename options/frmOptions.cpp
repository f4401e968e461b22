#include "options/frmOptions.h"

#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "options/Pages.h"
#include "options/resource.h"
#include "settings/IniOpenSave.h"
#include "settings/ProgramState.h"
#include "win/Dialog.h"
#include "win/Files.h"
#include "win/LateFunctions.h"
#include "win/MessageLoop.h"
#include "win/Shell.h"
#include "win/Text.h"

namespace options {
namespace {

// In the order of the tabs.
constexpr std::array kPages{&kGeneralPage,  &kStationsPage,   &kAlertFiltersPage,
                            &kTrayIconPage, &kTrayAlertsPage, &kInternetPage};
constexpr const PageEntry* kApplyOrder[] = {&kGeneralPage,  &kAlertFiltersPage, &kInternetPage,
                                            &kStationsPage, &kTrayIconPage,     &kTrayAlertsPage};

// The state of the open dialog; its arrays have the order of kPages.
struct OptionsForm {
    HWND window = nullptr;
    std::array<HWND, kPages.size()> frames{};
    std::array<bool, kPages.size()> changed{};
    bool anythingChanged = false;
    bool loading = true;
    std::size_t activeFrame = 0;
};
OptionsForm form;

std::size_t IndexOf(const PageEntry* page) {
    return static_cast<std::size_t>(std::find(kPages.begin(), kPages.end(), page) - kPages.begin());
}

HWND Tabs() {
    return GetDlgItem(form.window, frmOptions_Tabs);
}

void AddTabs() {
    for (std::size_t i = 0; i < kPages.size(); ++i) win::InsertTab(Tabs(), i, kPages[i]->tabText);
}

// Places the frames within the tab control.
void PlaceFrames() {
    RECT area;
    GetWindowRect(Tabs(), &area);
    MapWindowPoints(nullptr, form.window, reinterpret_cast<POINT*>(&area), 2);
    SendMessageW(Tabs(), TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&area));
    for (const HWND frame : form.frames)
        // After the tabs in the Tab order, before the buttons.
        SetWindowPos(frame, Tabs(), area.left, area.top, area.right - area.left,
                     area.bottom - area.top, SWP_NOACTIVATE);
}

// Creates the frames, in place of the existing ones if there are any.
void CreateFrames() {
    for (std::size_t i = 0; i < kPages.size(); ++i) {
        if (form.frames[i]) DestroyWindow(form.frames[i]);
        form.frames[i] = win::CreateForm(kPages[i]->frame, form.window, kPages[i]->procedure);
        win::late::EnableThemeDialogTexture(form.frames[i], ETDT_ENABLETAB);
    }
    PlaceFrames();
}

// Returns the key of a page by the text of its tab.
std::string MakePageKey(std::string_view tabText) {
    return win::ReplaceAll(tabText, " ", "");
}

// Returns the index of the page with a key, or the first one for an unknown key.
std::size_t FindPage(const std::string& key) {
    for (std::size_t i = 0; i < kPages.size(); ++i)
        if (MakePageKey(kPages[i]->tabText) == key) return i;
    return 0;
}

void ShowPage(const std::string& tabText) {
    const std::string key = MakePageKey(tabText);
    form.activeFrame = FindPage(key);
    for (std::size_t i = 0; i < kPages.size(); ++i)
        ShowWindow(form.frames[i], i == form.activeFrame ? SW_SHOW : SW_HIDE);
    settings::WriteSetting(settings::kLastOption, key);
}

void SelectTab(std::size_t page) {
    SendMessageW(Tabs(), TCM_SETCURSEL, page, 0);
    ShowPage(kPages[page]->tabText);
}

void LoadFrame(std::size_t page) {
    kPages[page]->load(form.frames[page]);
}

void LoadRemainingFrames(std::size_t shownPage) {
    for (std::size_t i = 0; i < kPages.size(); ++i)
        if (form.window && i != shownPage) LoadFrame(i);
    form.loading = false;
    win::EnableControl(form.window, frmOptions_ApplyButton, false);
}

// Shows and loads the pages. While a setting cannot be read, the pages stay disabled and a timer
// calls this again: a page loaded without its settings would store their defaults. Reading may
// handle messages, so the dialog may be closed meanwhile.
void LoadPages() {
    constexpr UINT_PTR kRetryTimer = 1;
    constexpr UINT kRetryMilliseconds = 1000;
    KillTimer(form.window, kRetryTimer);
    const std::size_t failedBefore = settings::CountFailedReads();
    const auto stored = settings::TryReadSetting(settings::kLastOption);
    if (!form.window) return;
    const std::size_t first = FindPage(stored.value_or(std::string()));
    SelectTab(first);
    if (stored) {
        LoadFrame(first);
        LoadRemainingFrames(first);
        if (!form.window) return;
    }
    const bool isWhole = settings::CountFailedReads() == failedBefore;
    if (!isWhole) {
        form.loading = true;
        if (stored) CreateFrames();
        ShowPage(kPages[first]->tabText);
        SetTimer(form.window, kRetryTimer, kRetryMilliseconds, nullptr);
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
    for (const PageEntry* page : kApplyOrder) {
        const std::size_t i = IndexOf(page);
        if (std::exchange(form.changed[i], false)) page->apply(form.frames[i]);
        if (!form.window) return;  // storing handles messages, so the dialog may be closed
    }
    ShowRestartMessage(form.window);
    // A later Apply stores the pages that could not be stored or have been changed meanwhile.
    form.anythingChanged =
        std::find(form.changed.begin(), form.changed.end(), true) != form.changed.end();
    const HWND apply = GetDlgItem(form.window, frmOptions_ApplyButton);
    if (!form.anythingChanged && GetFocus() == apply)
        SendMessageW(form.window, WM_NEXTDLGCTL,
                     reinterpret_cast<WPARAM>(GetDlgItem(form.window, frmOptions_Command1)), TRUE);
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

// Handles Ctrl+Tab, Ctrl+PgDn and, for the previous page, Ctrl+Shift+Tab and Ctrl+PgUp. Returns
// whether the message was one of them.
bool TurnPage(const MSG& message) {
    const WPARAM key = message.wParam;
    if (message.message != WM_KEYDOWN || (key != VK_TAB && key != VK_PRIOR && key != VK_NEXT) ||
        GetKeyState(VK_CONTROL) >= 0 || GetAncestor(message.hwnd, GA_ROOT) != form.window)
        return false;
    const bool isBackward = key == VK_PRIOR || (key == VK_TAB && GetKeyState(VK_SHIFT) < 0);
    const std::size_t step = isBackward ? kPages.size() - 1 : 1;
    SendMessageW(form.window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Tabs()), TRUE);
    SelectTab((form.activeFrame + step) % kPages.size());
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
            const HWND page = form.frames[IndexOf(&kAlertFiltersPage)];
            SendMessageW(page, WM_COMMAND, frmOptions_Command9, 0);
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
            const auto* notification = reinterpret_cast<const NMHDR*>(lParam);
            if (notification->idFrom == frmOptions_Tabs &&
                notification->code == static_cast<UINT>(TCN_SELCHANGE))
                ShowPage(kPages[static_cast<std::size_t>(SendMessageW(Tabs(), TCM_GETCURSEL, 0, 0))]
                             ->tabText);
            return TRUE;
        }
        case WM_DPICHANGED:
            PlaceFrames();
            return TRUE;
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

void MarkChanged(HWND page) {
    const auto frame = std::find(form.frames.begin(), form.frames.end(), page);
    if (form.loading || frame == form.frames.end()) return;
    form.changed[static_cast<std::size_t>(frame - form.frames.begin())] = true;
    form.anythingChanged = true;
    win::EnableControl(form.window, frmOptions_ApplyButton, true);
}

void ShowOptionsDialog() {
    if (form.window) {
        // A caller that wants a certain page has stored its key; otherwise it is that of the shown
        // page.
        SelectTab(FindPage(settings::ReadSetting(settings::kLastOption)));
        SetForegroundWindow(GetLastActivePopup(form.window));
        return;
    }
    win::ShowModal({IDD_frmOptions, ICC_TAB_CLASSES, OptionsProcedure}, nullptr, TurnPage);
}

}  // namespace options
