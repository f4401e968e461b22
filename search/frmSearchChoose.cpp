#include "search/frmSearchChoose.h"

#include <commctrl.h>

#include <utility>

#include "search/SearchForm.h"
#include "search/StationTable.h"
#include "search/resource.h"
#include "win/Dialog.h"
#include "win/Dpi.h"
#include "win/ListView.h"
#include "win/MessageLoop.h"
#include "win/NeverDestroyed.h"

namespace search {
namespace {

struct ChooserForm {
    std::vector<std::string> rows;
    win::ImageList images = {};
    HWND window = nullptr;
    std::optional<std::size_t> selectedRow = std::nullopt;
};
ChooserForm& chooser = win::NeverDestroyed<ChooserForm>();

HWND LocationList() {
    return GetDlgItem(chooser.window, frmSearchChoose_LocationList);
}

void Command3_Click() {
    const int row = win::SelectedListRow(LocationList());
    if (row < 0) return;
    chooser.selectedRow = static_cast<std::size_t>(row);
    win::EndModal(chooser.window);
}

void Command2_Click() {
    win::EndModal(chooser.window);
}

void ShowIcons(UINT dpi) {
    win::ImageList images = LoadListIcons(dpi);
    SendMessageW(LocationList(), LVM_SETIMAGELIST, LVSIL_SMALL,
                 reinterpret_cast<LPARAM>(images.Get()));
    chooser.images = std::move(images);
}

void Form_Load() {
    const HWND list = LocationList();
    SendMessageW(list, LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
    ShowIcons(win::WindowDpi(chooser.window));
    win::UseListUnicode(list);
    win::AddListColumn(list, "Location Name", 0);
    for (const std::string& row : chooser.rows) win::AddListRow(list, kPlaceIcon - 1, {row});
    win::ResizeListViewColumns(list);
    win::SelectListRow(list, 0);
}

INT_PTR CALLBACK ChooserProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG:
            chooser.window = dialog;
            Form_Load();
            return TRUE;
        case WM_PAINT:
            SetFocus(LocationList());
            return FALSE;
        case WM_COMMAND:
            if (LOWORD(wParam) == frmSearchChoose_Command3) Command3_Click();
            if (LOWORD(wParam) == frmSearchChoose_Command2) Command2_Click();
            return TRUE;
        case WM_NOTIFY: {
            const auto* notification = reinterpret_cast<const NMHDR*>(lParam);
            if (notification->idFrom == frmSearchChoose_LocationList &&
                notification->code == static_cast<UINT>(NM_DBLCLK))
                Command3_Click();
            return TRUE;
        }
        case WM_DPICHANGED:
            ShowIcons(LOWORD(wParam));
            return TRUE;
        case WM_DESTROY:
            chooser.window = nullptr;
            return TRUE;
        default:
            return FALSE;
    }
}

}  // namespace

std::optional<std::size_t> ShowLocationChooser(HWND owner, const std::vector<std::string>& rows) {
    if (rows.empty() || chooser.window) return std::nullopt;
    chooser = ChooserForm{rows};
    win::ShowModal({IDD_frmSearchChoose, ICC_LISTVIEW_CLASSES, ChooserProcedure}, owner);
    chooser.images.Reset();
    win::PumpPendingMessages();
    return chooser.selectedRow;
}

void CloseLocationChooser() {
    if (chooser.window) Command2_Click();
}

}  // namespace search
