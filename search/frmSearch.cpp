#include "search/frmSearch.h"

#include <commctrl.h>

#include "search/SearchForm.h"
#include "search/SearchMap.h"
#include "search/SearchRun.h"
#include "search/StationRows.h"
#include "search/resource.h"
#include "settings/ProgramState.h"
#include "win/Dialog.h"
#include "win/Dpi.h"
#include "win/ListView.h"
#include "win/MessageLoop.h"

namespace search {
namespace {

constexpr WPARAM kLongestText = 500;  // characters; far fewer than a command line may have

HWND StationList() {
    return Control(frmSearch_StationList);
}

void AddColumns() {
    win::UseListUnicode(StationList());
    RECT client;
    GetClientRect(StationList(), &client);
    const struct {
        const char* header;
        int percent;
    } columns[] = {{"Station Name", 40}, {"Location", 35}, {"Data Source", 25}};
    for (const auto& column : columns)
        win::AddListColumn(StationList(), column.header, client.right * column.percent / 100);
}

void ScaleListIcons(UINT dpi) {
    win::ImageList images = LoadListIcons(dpi);
    if (SendMessageW(StationList(), LVM_GETIMAGELIST, LVSIL_SMALL, 0))
        SendMessageW(StationList(), LVM_SETIMAGELIST, LVSIL_SMALL,
                     reinterpret_cast<LPARAM>(images.Get()));
    Form().images = std::move(images);
}

void Form_Load(HWND dialog) {
    SearchForm& form = Form();
    form.window = dialog;
    settings::State().searchDialogOpen = true;
    form.images = LoadListIcons(win::WindowDpi(dialog));
    form.layout.Remember(dialog);
    form.layout.FitWorkArea();
    if (form.browser.Create(dialog, frmSearch_mashupbrowser)) {
        // After the list in the Tab order.
        SetWindowPos(form.browser.Window(), StationList(), 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        form.browser.Navigate("about:blank");
    }
    form.layout.Apply(form.browser.Window());
    SendMessageW(Control(frmSearch_Text1), EM_LIMITTEXT, kLongestText, 0);
    AddColumns();
    SendMessageW(StationList(), LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT,
                 LVS_EX_FULLROWSELECT);
}

void Command3_Click() {
    const int row = win::SelectedListRow(StationList());
    if (row < 0 || Form().isClosing) return;
    auto line = FormatStationLine(Form().stations, static_cast<std::size_t>(row));
    if (!line) return SetStatus("This station cannot be added.");
    Form().chosenLine = std::move(line);
    CloseForm();
}

void RunCommand(int control, int code) {
    switch (control) {
        case frmSearch_Command1:
            return Command1_Click();
        case frmSearch_Command2:
            if (IsWindowEnabled(Control(frmSearch_Command2))) CloseForm();
            return;
        case frmSearch_Command3:
            return Command3_Click();
        case frmSearch_Text1:
            // Enter searches from here and adds from the list.
            if (code == EN_SETFOCUS)
                SendMessageW(Form().window, DM_SETDEFID, frmSearch_Command1, 0);
            return;
        default:
            return;
    }
}

void HandleListNotification(NMHDR& notification) {
    switch (notification.code) {
        case static_cast<UINT>(NM_SETFOCUS):
            SendMessageW(Form().window, DM_SETDEFID, frmSearch_Command3, 0);
            return;
        case static_cast<UINT>(NM_CLICK):  // also on the selected row
            if (reinterpret_cast<const NMITEMACTIVATE&>(notification).iItem >= 0) CenterMap();
            return;
        case static_cast<UINT>(NM_DBLCLK):
            return Command3_Click();
        case static_cast<UINT>(LVN_GETDISPINFOW):
            return ProvideStationCell(reinterpret_cast<NMLVDISPINFOW&>(notification));
        case static_cast<UINT>(LVN_ODFINDITEMW):
            SetWindowLongPtrW(Form().window, DWLP_MSGRESULT, FindStationRow(notification));
            return;
        case static_cast<UINT>(LVN_ITEMCHANGED): {
            const auto& change = reinterpret_cast<const NMLISTVIEW&>(notification);
            const bool isSelected =
                (change.uNewState & LVIS_SELECTED) && !(change.uOldState & LVIS_SELECTED);
            if (isSelected && !Form().isSelecting) CenterMap();
            return;
        }
        default:
            return;
    }
}

// Sets the wait pointer over the whole dialog while a search runs. Returns whether it did.
bool ShowWaitPointer(HWND dialog) {
    if (!Form().isWaitPointer) return false;
    SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    SetWindowLongPtrW(dialog, DWLP_MSGRESULT, TRUE);
    return true;
}

INT_PTR CALLBACK SearchProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG:
            Form_Load(dialog);
            return TRUE;
        case WM_COMMAND:
            RunCommand(LOWORD(wParam), HIWORD(wParam));
            return TRUE;
        case WM_NOTIFY: {
            auto* notification = reinterpret_cast<NMHDR*>(lParam);
            if (notification->idFrom != frmSearch_StationList) return FALSE;
            HandleListNotification(*notification);
            return TRUE;
        }
        case WM_TIMER:
            CityClickedTimer_Timer();
            return TRUE;
        case WM_SETCURSOR:
            return ShowWaitPointer(dialog);
        case WM_SIZE:
            Form().layout.Apply(Form().browser.Window());
            return TRUE;
        case WM_DPICHANGED:
            ScaleListIcons(LOWORD(wParam));
            return TRUE;
        case WM_GETMINMAXINFO:
            Form().layout.LimitSize(*reinterpret_cast<MINMAXINFO*>(lParam));
            return TRUE;
        case WM_CLOSE:
            CloseForm();
            return TRUE;
        case WM_DESTROY:
            Form().isClosing = true;
            Form().browser.Release();
            Form().window = nullptr;
            return TRUE;
        default:
            return FALSE;
    }
}

bool HandleBrowserKey(const MSG& message) {
    return Form().browser.HandleKey(message);
}

void BringToFront(HWND window) {
    constexpr UINT kInPlace = SWP_NOMOVE | SWP_NOSIZE;
    SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, kInPlace);
    win::PumpPendingMessages();
    SetWindowPos(window, HWND_NOTOPMOST, 0, 0, 0, 0, kInPlace);
    SetForegroundWindow(window);
}

void Form_Unload(HWND owner) {
    settings::State().searchDialogOpen = false;
    BringToFront(owner);
    win::PumpPendingMessages();
    EnableWindow(Form().stationCombo, TRUE);
}

}  // namespace

std::optional<std::string> ShowSearchDialog(HWND owner, HWND stationCombo) {
    static bool isOpen = false;
    if (isOpen) return std::nullopt;
    isOpen = true;
    Form() = SearchForm();
    Form().stationCombo = stationCombo;
    if (win::ShowModal({IDD_frmSearch, ICC_LISTVIEW_CLASSES, SearchProcedure}, owner,
                       HandleBrowserKey))
        Form_Unload(owner);
    auto line = std::move(Form().chosenLine);
    Form() = SearchForm();
    isOpen = false;
    return line;
}

}  // namespace search
