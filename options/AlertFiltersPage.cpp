#include <algorithm>

#include "options/OptionsRules.h"
#include "options/Pages.h"
#include "options/resource.h"
#include "settings/IniOpenSave.h"
#include "settings/MessageBoxes.h"
#include "win/ListItems.h"
#include "win/Dialog.h"
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

bool IsShowOnlyStored() {
    return ReadFlag(kShowFilteredWords);
}

// Makes room to scroll to the end of the longest phrase.
void FitScrollRange(HWND page) {
    const win::ListControl list = List2(page);
    const win::TextMeter meter(list.window);
    int widest = 0;
    for (int i = 0; i < win::CountItems(list); ++i)
        widest = std::max(widest, meter.Width(win::ItemText(list, i) + "  "));
    SendMessageA(list.window, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(widest), 0);
}

void ShowListChange(HWND page) {
    FitScrollRange(page);
    win::EnableControl(page, frmOptions_Command10, win::CountItems(List2(page)) > 0);
}

void Command9_Click(HWND page) {
    const std::string word(win::TrimSpaces(win::ControlText(page, frmOptions_Text3)));
    win::SetControlText(page, frmOptions_Text3, word);
    if (word.empty()) return;
    MarkChanged(Page::AlertFilters);
    const std::string entry = QuotedWord(word);
    if (win::FindItem(List2(page), entry) < 0) win::AddItem(List2(page), entry);
    win::SetControlText(page, frmOptions_Text3, "");
    ShowListChange(page);
    SetFocus(GetDlgItem(page, frmOptions_Text3));
}

void Command10_Click(HWND page) {
    if (!settings::Confirm(GetParent(page),
                           "Are you sure you want to remove the selected word(s)/phrase(s)?", 0))
        return;
    const win::ListControl list = List2(page);
    for (int i = win::CountItems(list) - 1; i >= 0; --i)
        if (SendMessageA(list.window, LB_GETSEL, static_cast<WPARAM>(i), 0) > 0)
            win::RemoveItem(list, i);
    MarkChanged(Page::AlertFilters);
    ShowListChange(page);
}

// Enter in the word box adds the word instead of closing the dialog.
void MakeAddTheDefault(HWND page, bool isDefault) {
    const HWND dialog = GetParent(page);
    SendMessageA(dialog, DM_SETDEFID, isDefault ? frmOptions_Command9 : IDOK, 0);
}

}  // namespace

INT_PTR CALLBACK AlertFiltersProcedure(HWND page, UINT message, WPARAM wParam, LPARAM) {
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
            // A radio button may say that it is clicked when Tab leads to it.
            if (event == BN_CLICKED && ShowsOnly(page) != IsShowOnlyStored())
                MarkChanged(Page::AlertFilters);
            return TRUE;
        case frmOptions_Text3:
            if (event == EN_SETFOCUS) MakeAddTheDefault(page, true);
            if (event == EN_KILLFOCUS) MakeAddTheDefault(page, false);
            return TRUE;
        default:
            return FALSE;
    }
}

void LoadAlertFilters(HWND page) {
    const win::ListControl list = List2(page);
    SendMessageA(list.window, WM_SETREDRAW, FALSE, 0);
    for (const std::string& word : win::Split(ReadSetting(kAlertFilters), kFilterSeparator))
        win::AddItem(list, QuotedWord(word));
    SendMessageA(list.window, WM_SETREDRAW, TRUE, 0);
    ShowListChange(page);
    CheckRadioButton(page, frmOptions_Option6, frmOptions_OptionIgnore,
                     IsShowOnlyStored() ? frmOptions_Option6 : frmOptions_OptionIgnore);
}

void ApplyAlertFilters(HWND page) {
    const win::ListControl list = List2(page);
    std::vector<std::string> entries;
    entries.reserve(static_cast<std::size_t>(win::CountItems(list)));
    for (int i = 0; i < win::CountItems(list); ++i) entries.push_back(win::ItemText(list, i));
    WriteSetting(kAlertFilters, JoinFilterWords(entries));
    WriteFlag(kShowFilteredWords, ShowsOnly(page));
}

}  // namespace options
