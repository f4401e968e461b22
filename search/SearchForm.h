#pragma once
#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "search/MapBrowser.h"
#include "search/SearchLayout.h"
#include "search/StationTableRules.h"
#include "win/Images.h"

// The one search dialog and its routines, one file for each of: the dialog itself, the search run,
// the talk with the map.
namespace search {

struct SearchForm {
    HWND window = nullptr;
    HWND stationCombo = nullptr;  // the Options dialog's Combo1
    SearchLayout layout;
    win::ImageList images;  // ImageList1
    MapBrowser browser;     // mashupbrowser
    StationTable stations;
    std::vector<ListRow> rows;  // of StationList
    std::string lastClickedStation;
    std::optional<std::string> chosenLine;

    int runsOnStack = 0;  // searches that wait inside one another, mostly none or one
    int runNumber = 0;    // the newest search
    bool isWaitPointer = false;
    bool isSelecting = false;  // the program selects a row, not the user
    bool isClosing = false;    // hidden; unloads when no search is on the stack any more
};
SearchForm& Form();

// A control of the dialog.
HWND Control(int control);
// Label1.
void SetStatus(const std::string& text);
void SetWaitPointer(bool wait);
// Selects a row of StationList without taking it for a choice of the user's.
void SelectStation(int row);
// Hides the dialog and unloads it, at once or as soon as the searches on the stack have ended.
void CloseForm();

// One whole search for the text in Text1, from the click to the filled list.
void Command1_Click();

// Centres the map on the selected station.
void CenterMap();
// Returns the map to its overall view. Nothing needs it at present: a new list has a new page.
void ResetMap();
// Looks which station was clicked on the map, and selects it.
void CityClickedTimer_Timer();

}  // namespace search
