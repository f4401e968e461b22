#pragma once
#include <windows.h>
#include <commctrl.h>

#include <vector>

#include "search/StationTableRules.h"

// What StationList shows. The list holds no texts of its own but asks for those that it draws, so
// that it is filled at once however many stations there are.
namespace search {

// Replaces the rows. Where there are any, every column is sized to its contents and header, and the
// last one takes the room that is left.
void ShowStationRows(std::vector<ListRow> rows);

// Answers a request of the list for a cell.
void AnswerStationCell(NMLVDISPINFOA& request);

// The row that letters typed in the list ask for by LVN_ODFINDITEM, -1 for none.
int FindStationRow(const NMHDR& request);

}  // namespace search
