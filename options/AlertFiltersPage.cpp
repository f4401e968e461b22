#include <algorithm>
#include <string>
#include <vector>

#include "options/Pages.h"
#include "options/resource.h"
#include "settings/IniOpenSave.h"
#include "settings/MessageBoxes.h"
#include "win/Dialog.h"
#include "win/ListItems.h"
#include "win/ListView.h"
#include "win/Text.h"

namespace options {

using namespace settings;

namespace {

win::ListControl List2(HWND page) {
    return win::ListBox(page, frmOptions_List2);
}

bool ShowsOnly(HWND page) {
    return win::IsChecked(page, frmOptions_Option6);
}

// Returns a word as the list shows it.
std::string QuoteWord(std::string_view word) {
    return std::string("\"").append(word).append("\"");
}

// Lets the list scroll to the end of the longest phrase.
void FitScrollRange(HWND page) {
    const win::ListControl list = List2(page);
    const win::TextMeter meter(list.window);
    int widest = 0;
    for (int i = 0; i < win::CountItems(list); ++i)
        widest = std::max(widest, meter.Width(win::ItemText(list, i) + "  "));
    SendMessageW(list.window, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(widest), 0);
}

void UpdateList(HWND page) {
    FitScrollRange(page);
    win::EnableControl(page, frmOptions_Command10, win::CountItems(List2(page)) > 0);
}

void Command9_Click(HWND page) {
    const std::string word(win::Trim(win::ControlText(page, frmOptions_Text3)));
    win::SetControlText(page, frmOptions_Text3, word);
    if (word.empty()) return;
    MarkChanged(page);
    const std::string entry = QuoteWord(word);
    if (win::FindItem(List2(page), entry) < 0) win::AddItem(List2(page), entry);
    win::SetControlText(page, frmOptions_Text3, "");
    UpdateList(page);
    SetFocus(GetDlgItem(page, frmOptions_Text3));
}

void Command10_Click(HWND page) {
    if (!settings::Confirm(GetParent(page),
                           "Are you sure you want to remove the selected word(s)/phrase(s)?", 0))
        return;
    const win::ListControl list = List2(page);
    for (int i = win::CountItems(list) - 1; i >= 0; --i)
        if (SendMessageW(list.window, LB_GETSEL, static_cast<WPARAM>(i), 0) > 0)
            win::RemoveItem(list, i);
    MarkChanged(page);
    UpdateList(page);
}

// Lets Enter in the word box add the word instead of closing the dialog.
void SetAddAsDefault(HWND page, bool isDefault) {
    const HWND dialog = GetParent(page);
    SendMessageW(dialog, DM_SETDEFID, isDefault ? frmOptions_Command9 : IDOK, 0);
}

INT_PTR CALLBACK HandleMessage(HWND page, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_DPICHANGED_AFTERPARENT) FitScrollRange(page);
    if (message != WM_COMMAND) return FALSE;
    const UINT event = HIWORD(wParam);
    switch (LOWORD(wParam)) {
        case frmOptions_Command9:
            if (event == BN_CLICKED) Command9_Click(page);
            return TRUE;
        case frmOptions_Command10:
            if (event == BN_CLICKED) Command10_Click(page);
            return TRUE;
        case frmOptions_Option6:
        case frmOptions_OptionIgnore:
            // A radio button may also report a click when it gets the keyboard focus.
            if (event == BN_CLICKED && ShowsOnly(page) != ReadFlag(kShowFilteredWords))
                MarkChanged(page);
            return TRUE;
        case frmOptions_Text3:
            if (event == EN_SETFOCUS) SetAddAsDefault(page, true);
            if (event == EN_KILLFOCUS) SetAddAsDefault(page, false);
            return TRUE;
        default:
            return FALSE;
    }
}

void Load(HWND page) {
    const win::ListControl list = List2(page);
    SendMessageW(list.window, WM_SETREDRAW, FALSE, 0);
    for (const std::string& word : win::Split(ReadSetting(kAlertFilters), kFilterSeparator))
        win::AddItem(list, QuoteWord(word));
    SendMessageW(list.window, WM_SETREDRAW, TRUE, 0);
    UpdateList(page);
    CheckRadioButton(page, frmOptions_Option6, frmOptions_OptionIgnore,
                     ReadFlag(kShowFilteredWords) ? frmOptions_Option6 : frmOptions_OptionIgnore);
}

void Apply(HWND page) {
    const win::ListControl list = List2(page);
    std::vector<std::string> entries;
    entries.reserve(static_cast<std::size_t>(win::CountItems(list)));
    for (int i = 0; i < win::CountItems(list); ++i) entries.push_back(win::ItemText(list, i));
    WriteSetting(kAlertFilters, win::ReplaceAll(win::Join(entries, kFilterSeparator), "\"", ""));
    WriteFlag(kShowFilteredWords, ShowsOnly(page));
}

}  // namespace

const PageEntry kAlertFiltersPage{"Alert Filters", IDD_AlertFiltersFrame, HandleMessage, Load,
                                  Apply};

}  // namespace options
