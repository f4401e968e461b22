#pragma once
#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "search/MapBrowser.h"
#include "search/SearchLayout.h"
#include "search/StationTable.h"
#include "win/Images.h"

// The state of the search dialog and the operations on it that its files share.
namespace search {

struct SearchForm {
    HWND window = nullptr;
    HWND stationCombo = nullptr;  // Combo1 of the Options dialog
    SearchLayout layout;
    win::ImageList images;  // ImageList1
    MapBrowser browser;     // mashupbrowser
    StationTable stations;
    std::vector<ListRow> rows;  // of StationList
    std::string lastClickedStation;
    std::optional<std::string> chosenLine;

    int activeSearches = 0;  // on the stack; a search that waits can be nested in another
    int searchNumber = 0;    // of the newest search
    bool isWaitPointer = false;
    bool isSelecting = false;  // the program, not the user, is selecting a row
    bool isClosing = false;    // hidden; unloads when the last search on the stack has ended
};

// Returns the one search form.
SearchForm& Form();
// Returns whether the dialog is closing; a wait of the search ends then.
bool IsFormClosing();

// Loads the small icons of the lists, ImageList1, at the size for a resolution in dots per inch.
win::ImageList LoadListIcons(UINT dpi);

// Returns a control of the dialog, or null when the dialog is not open.
HWND Control(int control);
// Shows a text in the status line, Label1.
void SetStatus(const std::string& text);
// Shows the wait pointer over the whole dialog, or the arrow.
void SetWaitPointer(bool wait);
// Selects a row of StationList (counted from 0) without treating it as a choice of the user.
void SelectStation(int row);
// Hides the dialog and unloads it, at once or when the searches on the stack have ended.
void CloseForm();

}  // namespace search
