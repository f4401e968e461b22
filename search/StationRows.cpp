#include "search/StationRows.h"

#include <algorithm>
#include <utility>

#include "search/SearchForm.h"
#include "search/resource.h"
#include "win/ListView.h"
#include "win/CodePage.h"

namespace search {
namespace {

constexpr std::string ListRow::*kColumns[] = {&ListRow::name, &ListRow::location,
                                              &ListRow::dataSource};

// Returns a row that has the widest text of each column.
ListRow MakeWidestRow(HWND list, const std::vector<ListRow>& rows) {
    const win::TextMeter meter(list);
    ListRow widest;
    for (const auto column : kColumns) {
        int most = 0;
        for (const ListRow& row : rows) {
            const int width = meter.Width(row.*column);
            if (width > most) widest.*column = row.*column;
            most = std::max(most, width);
        }
    }
    return widest;
}

void SetRows(HWND list, std::vector<ListRow> rows) {
    Form().rows = std::move(rows);
    win::SetListCount(list, Form().rows.size());
}

}  // namespace

void ShowStationRows(std::vector<ListRow> rows) {
    const HWND list = Control(frmSearch_StationList);
    if (!rows.empty()) {
        // A virtual list measures only the rows in view, so it gets the widest texts first.
        SetRows(list, {MakeWidestRow(list, rows)});
        win::FitListColumns(list);
        win::FillLastListColumn(list, rows.size());
    }
    SetRows(list, std::move(rows));
}

void ProvideStationCell(NMLVDISPINFOW& request) {
    LVITEMW& item = request.item;
    const auto row = static_cast<std::size_t>(item.iItem);
    const auto column = static_cast<std::size_t>(item.iSubItem);
    if (row >= Form().rows.size() || column >= std::size(kColumns)) return;
    if (item.mask & LVIF_TEXT) win::SetCellText(request, Form().rows[row].*kColumns[column]);
    if (item.mask & LVIF_IMAGE) item.iImage = Form().rows[row].icon - 1;
}

int FindStationRow(const NMHDR& request) {
    const auto text = win::FindRequestText(request);
    if (!text) return -1;
    const std::string wanted = win::ToLower(*text);
    const auto start =
        static_cast<std::size_t>(reinterpret_cast<const NMLVFINDITEMW&>(request).iStart);
    const std::size_t count = Form().rows.size();
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t row = (start + i) % count;
        if (win::ToLower(Form().rows[row].name).starts_with(wanted)) return static_cast<int>(row);
    }
    return -1;
}

}  // namespace search
