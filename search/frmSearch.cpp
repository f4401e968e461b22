#include "search/frmSearch.h"

#include <commctrl.h>

#include "assets/icons/icons.h"
#include "search/SearchForm.h"
#include "search/StationRows.h"
#include "search/frmSearchChoose.h"
#include "search/resource.h"
#include "settings/ProgramState.h"
#include "win/Dialog.h"
#include "win/ListView.h"
#include "win/Messages.h"
#include "win/NeverDestroyed.h"

namespace search {
namespace {

constexpr WPARAM kLongestText = 500;  // far below what a command line holds

HWND StationList() {
    return Control(frmSearch_StationList);
}

void AddColumns() {
    RECT room;
    GetClientRect(StationList(), &room);
    const struct {
        const char* header;
        int percent;
    } columns[] = {{"Station Name", 40}, {"Location", 35}, {"Data Source", 25}};
    for (const auto& column : columns)
        win::AddListColumn(StationList(), column.header, room.right * column.percent / 100);
}

void Form_Load(HWND dialog) {
    SearchForm& form = Form();
    form.window = dialog;
    settings::State().searchDialogOpen = true;
    form.images = win::LoadSmallIcons({IDI_STATION, IDI_NETWORK, IDI_PLACE});
    form.layout.Remember(dialog);
    if (form.browser.Create(dialog, frmSearch_mashupbrowser)) {
        // Behind the list in the Tab order.
        SetWindowPos(form.browser.Window(), StationList(), 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        form.browser.Navigate("about:blank");
    }
    form.layout.Apply(form.browser.Window());
    SendMessageA(Control(frmSearch_Text1), EM_LIMITTEXT, kLongestText, 0);
    AddColumns();
    SendMessageA(StationList(), LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT,
                 LVS_EX_FULLROWSELECT);
}

void Command3_Click() {
    const int row = win::SelectedListRow(StationList());
    if (row < 0 || Form().isClosing) return;
    auto line = StationLineOf(Form().stations, static_cast<std::size_t>(row));
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
                SendMessageA(Form().window, DM_SETDEFID, frmSearch_Command1, 0);
            return;
        default:
            return;
    }
}

void TakeListNote(NMHDR& note) {
    switch (note.code) {
        case static_cast<UINT>(NM_SETFOCUS):
            SendMessageA(Form().window, DM_SETDEFID, frmSearch_Command3, 0);
            return;
        case static_cast<UINT>(NM_CLICK):  // also on the row that is selected already
            if (reinterpret_cast<const NMITEMACTIVATE&>(note).iItem >= 0) CenterMap();
            return;
        case static_cast<UINT>(NM_DBLCLK):
            return Command3_Click();
        case static_cast<UINT>(LVN_GETDISPINFOA):
            return AnswerStationCell(reinterpret_cast<NMLVDISPINFOA&>(note));
        case static_cast<UINT>(LVN_ODFINDITEMA):
        case static_cast<UINT>(LVN_ODFINDITEMW):
            SetWindowLongPtrA(Form().window, DWLP_MSGRESULT, FindStationRow(note));
            return;
        case static_cast<UINT>(LVN_ITEMCHANGED): {
            const auto& change = reinterpret_cast<const NMLISTVIEW&>(note);
            const bool isSelected =
                (change.uNewState & LVIS_SELECTED) && !(change.uOldState & LVIS_SELECTED);
            if (isSelected && !Form().isSelecting) CenterMap();
            return;
        }
        default:
            return;
    }
}

// Whether the wait pointer is up, which then stands over the whole dialog.
bool ShowWaitPointer(HWND dialog) {
    if (!Form().isWaitPointer) return false;
    SetCursor(LoadCursorA(nullptr, IDC_WAIT));
    SetWindowLongPtrA(dialog, DWLP_MSGRESULT, TRUE);
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
            auto* note = reinterpret_cast<NMHDR*>(lParam);
            if (note->idFrom != frmSearch_StationList) return FALSE;
            TakeListNote(*note);
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

bool TakeBrowserKey(const MSG& message) {
    return Form().browser.TakeKey(message);
}

void BringToFront(HWND window) {
    constexpr UINT inPlace = SWP_NOMOVE | SWP_NOSIZE;
    SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, inPlace);
    win::PumpPendingMessages();
    SetWindowPos(window, HWND_NOTOPMOST, 0, 0, 0, 0, inPlace);
    SetForegroundWindow(window);
}

void Form_Unload(HWND owner) {
    settings::State().searchDialogOpen = false;
    BringToFront(owner);
    win::PumpPendingMessages();
    EnableWindow(Form().stationCombo, TRUE);
}

}  // namespace

SearchForm& Form() {
    static SearchForm& form = win::NeverDestroyed<SearchForm>();
    return form;
}

HWND Control(int control) {
    return Form().window ? GetDlgItem(Form().window, control) : nullptr;
}

void SetStatus(const std::string& text) {
    SetWindowTextA(Control(frmSearch_Label1), text.c_str());
}

void SetWaitPointer(bool wait) {
    Form().isWaitPointer = wait;
    SetCursor(LoadCursorA(nullptr, wait ? IDC_WAIT : IDC_ARROW));
}

void SelectStation(int row) {
    Form().isSelecting = true;
    win::SelectListRow(StationList(), row);
    Form().isSelecting = false;
}

void CloseForm() {
    Form().isClosing = true;
    CloseLocationChooser();
    if (Form().runsOnStack == 0)
        win::EndModal(Form().window);
    else {
        // As in EndModal, the owner first; it need not wait for what is still on the stack.
        if (const HWND owner = GetWindow(Form().window, GW_OWNER)) EnableWindow(owner, TRUE);
        ShowWindow(Form().window, SW_HIDE);
    }
}

std::optional<std::string> ShowSearchDialog(HWND owner, HWND stationCombo) {
    static bool isOpen = false;
    if (isOpen) return std::nullopt;
    isOpen = true;
    Form() = SearchForm();
    Form().stationCombo = stationCombo;
    if (win::ShowModal({IDD_frmSearch, IDI_PROGRAM, ICC_LISTVIEW_CLASSES, SearchProcedure}, owner,
                       TakeBrowserKey))
        Form_Unload(owner);
    auto line = std::move(Form().chosenLine);
    Form() = SearchForm();
    isOpen = false;
    return line;
}

}  // namespace search
