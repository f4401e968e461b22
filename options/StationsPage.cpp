#include <algorithm>
#include <vector>

#include "options/InputBox.h"
#include "options/Pages.h"
#include "options/resource.h"
#include "search/frmSearch.h"
#include "settings/MessageBoxes.h"
#include "stations/StationLine.h"
#include "stations/StationList.h"
#include "tray/modTrayMenu.h"
#include "win/Dialog.h"
#include "win/ListItems.h"
#include "win/NeverDestroyed.h"

namespace options {
namespace {

// Whether the station file has been read. Until then all buttons are disabled, so that a file whose
// stations are unknown is not overwritten.
bool isRead = false;

// The station lines of the entries of Combo1, which shows their display texts.
std::vector<std::string>& lines = win::NeverDestroyed<std::vector<std::string>>();

win::ListControl Combo1(HWND page) {
    return win::ComboBox(page, frmOptions_Combo1);
}

void EnableStationButtons(HWND page) {
    for (const int button : {frmOptions_Command23, frmOptions_Command7, frmOptions_Command5})
        win::EnableControl(page, button, !lines.empty());
    win::EnableControl(page, frmOptions_Command6, isRead);
}

void ShowLines(HWND page, int selected) {
    const win::ListControl combo = Combo1(page);
    SendMessageW(combo.window, WM_SETREDRAW, FALSE, 0);
    win::ClearItems(combo);
    for (const std::string& line : lines)
        win::AddItem(combo, std::string(stations::DisplayText(line)));
    SendMessageW(combo.window, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(combo.window, nullptr, TRUE);
    win::SelectItem(combo, selected);
    EnableStationButtons(page);
}

// Returns the index of the selected line, or the count of lines when none is selected.
std::size_t FindSelected(HWND page) {
    const int index = win::SelectedItem(Combo1(page));
    return index < 0 ? lines.size() : static_cast<std::size_t>(index);
}

// Shows changed lines and selects the given one, or the last.
void ChangeLines(HWND page, std::size_t selected) {
    const std::size_t last = lines.empty() ? 0 : lines.size() - 1;
    ShowLines(page, static_cast<int>(selected < last ? selected : last));
    MarkChanged(page);
}

// Selects a station line in Combo1.
void SetCombo1City(HWND page, const std::string& line) {
    for (std::size_t i = 0; i < lines.size(); ++i)
        if (lines[i] == line) win::SelectItem(Combo1(page), static_cast<int>(i));
}

void Command6_Click(HWND page) {
    const auto line = search::ShowSearchDialog(GetParent(page), Combo1(page).window);
    if (!line || !IsWindow(page)) return;
    // The page counts as changed even if the line was there before.
    if (std::find(lines.begin(), lines.end(), *line) == lines.end()) lines.push_back(*line);
    ChangeLines(page, FindSelected(page));
    SetCombo1City(page, *line);
}

void Command23_Click(HWND page) {
    const std::size_t selected = FindSelected(page);
    if (selected >= lines.size()) return;
    const std::string answer = ShowInputBox(
        GetParent(page), "Edit the weather station below and press \"OK\" to save your changes.",
        std::string(stations::DisplayText(lines[selected])));
    if (answer.empty()) return;
    lines[selected] = stations::RenameStation(lines[selected], answer);
    ChangeLines(page, selected);
}

void Command7_Click(HWND page) {
    const std::size_t selected = FindSelected(page);
    if (selected >= lines.size()) return;
    const std::string question = std::string("Are you sure you want to remove ''")
                                     .append(stations::DisplayText(lines[selected]))
                                     .append("''?");
    if (!settings::Confirm(GetParent(page), question, 0)) return;
    lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(selected));
    ChangeLines(page, selected);
}

void Command5_Click(HWND page) {
    // No is the default: Alt+E, Enter would otherwise remove all stations.
    if (!settings::Confirm(GetParent(page),
                           "Are you sure you want to remove all saved weather stations?",
                           MB_DEFBUTTON2))
        return;
    lines.clear();
    ChangeLines(page, 0);
}

void Load(HWND page) {
    constexpr UINT_PTR kRetryTimer = 1;
    constexpr UINT kRetryMilliseconds = 1000;
    auto read = stations::ReadStationFile(stations::StationFilePath());
    isRead = read.has_value();
    lines = std::move(read).value_or(std::vector<std::string>());
    ShowLines(page, 0);
    if (isRead)
        KillTimer(page, kRetryTimer);
    else
        SetTimer(page, kRetryTimer, kRetryMilliseconds, nullptr);
    tray::LoadUnreadStations();
}

void Apply(HWND page) {
    const bool isWritten = stations::WriteStationFile(lines, stations::StationFilePath());
    stations::SetStationList(lines);
    stations::LoadStationList();
    tray::BuildStationMenu();
    if (!isWritten) MarkChanged(page);  // a later Apply tries again
}

INT_PTR CALLBACK HandleMessage(HWND page, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_TIMER) Load(page);
    if (message != WM_COMMAND || HIWORD(wParam) != BN_CLICKED) return FALSE;
    switch (LOWORD(wParam)) {
        case frmOptions_Command6:
            Command6_Click(page);
            return TRUE;
        case frmOptions_Command23:
            Command23_Click(page);
            return TRUE;
        case frmOptions_Command7:
            Command7_Click(page);
            return TRUE;
        case frmOptions_Command5:
            Command5_Click(page);
            return TRUE;
        default:
            return FALSE;
    }
}

}  // namespace

const PageEntry kStationsPage{"Stations", IDD_StationsFrame, HandleMessage, Load, Apply};

}  // namespace options
