#include "win/ListItems.h"

#include "win/CodePage.h"

namespace win {
namespace {

LRESULT Send(const ListControl& control, UINT comboMessage, UINT listMessage, WPARAM wParam = 0,
             LPARAM lParam = 0) {
    return SendMessageW(control.window, control.isListBox ? listMessage : comboMessage, wParam,
                        lParam);
}

}  // namespace

ListControl ComboBox(HWND dialog, int control) {
    return {GetDlgItem(dialog, control), false};
}

ListControl ListBox(HWND dialog, int control) {
    return {GetDlgItem(dialog, control), true};
}

void ClearItems(const ListControl& control) {
    Send(control, CB_RESETCONTENT, LB_RESETCONTENT);
}

int AddItem(const ListControl& control, const std::string& text) {
    return static_cast<int>(Send(control, CB_ADDSTRING, LB_ADDSTRING, 0,
                                 reinterpret_cast<LPARAM>(ToWide(text).c_str())));
}

void RemoveItem(const ListControl& control, int index) {
    Send(control, CB_DELETESTRING, LB_DELETESTRING, static_cast<WPARAM>(index));
}

int CountItems(const ListControl& control) {
    return static_cast<int>(Send(control, CB_GETCOUNT, LB_GETCOUNT));
}

std::string ItemText(const ListControl& control, int index) {
    const auto item = static_cast<WPARAM>(index);
    const LRESULT length = Send(control, CB_GETLBTEXTLEN, LB_GETTEXTLEN, item);
    if (length <= 0) return {};
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    const LRESULT copied =
        Send(control, CB_GETLBTEXT, LB_GETTEXT, item, reinterpret_cast<LPARAM>(text.data()));
    if (copied < 0) return {};
    text.resize(static_cast<std::size_t>(copied));
    return FromWide(text);
}

int FindItem(const ListControl& control, std::string_view text) {
    const int count = CountItems(control);
    for (int i = 0; i < count; ++i)
        if (ItemText(control, i) == text) return i;
    return -1;
}

int SelectedItem(const ListControl& control) {
    return static_cast<int>(Send(control, CB_GETCURSEL, LB_GETCURSEL));
}

void SelectItem(const ListControl& control, int index) {
    Send(control, CB_SETCURSEL, LB_SETCURSEL, static_cast<WPARAM>(index));
}

}  // namespace win
