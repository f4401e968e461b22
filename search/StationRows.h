#pragma once
#include <windows.h>
#include <commctrl.h>

#include <vector>

#include "search/StationTable.h"

// The rows of StationList. The list is virtual: it asks for each cell that it draws, so it fills at
// once however many stations there are.
namespace search {

// Replaces the rows. With any rows, sizes every column to its contents and header; the last column
// takes the remaining width.
void ShowStationRows(std::vector<ListRow> rows);

// Answers the list's request for a cell.
void ProvideStationCell(NMLVDISPINFOW& request);

// Returns the row that the letters typed in the list search for (LVN_ODFINDITEMW), or -1 for none.
int FindStationRow(const NMHDR& request);

}  // namespace search
