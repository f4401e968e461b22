#include "search/SearchForm.h"

#include "search/frmSearchChoose.h"
#include "search/resource.h"
#include "win/Dialog.h"
#include "win/Dpi.h"
#include "win/ListView.h"
#include "win/NeverDestroyed.h"

namespace search {

SearchForm& Form() {
    static SearchForm& form = win::NeverDestroyed<SearchForm>();
    return form;
}

bool IsFormClosing() {
    return Form().isClosing;
}

win::ImageList LoadListIcons(UINT dpi) {
    return win::LoadIconList({IDI_STATION, IDI_NETWORK, IDI_PLACE}, win::SmallIconSize(dpi));
}

HWND Control(int control) {
    return Form().window ? GetDlgItem(Form().window, control) : nullptr;
}

void SetStatus(const std::string& text) {
    if (Form().window) win::SetControlText(Form().window, frmSearch_Label1, text);
}

void SetWaitPointer(bool wait) {
    Form().isWaitPointer = wait;
    SetCursor(LoadCursorW(nullptr, wait ? IDC_WAIT : IDC_ARROW));
}

void SelectStation(int row) {
    Form().isSelecting = true;
    win::SelectListRow(Control(frmSearch_StationList), row);
    Form().isSelecting = false;
}

void CloseForm() {
    Form().isClosing = true;
    CloseLocationChooser();
    if (Form().activeSearches == 0)
        win::EndModal(Form().window);
    else {
        // Enables the owner first, as EndModal does: the owner need not wait for the searches.
        if (const HWND owner = GetWindow(Form().window, GW_OWNER)) EnableWindow(owner, TRUE);
        ShowWindow(Form().window, SW_HIDE);
    }
}

}  // namespace search
