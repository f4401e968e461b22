#include "win/Choice.h"

namespace win {
namespace {

LRESULT Send(const ChoiceControl& control, UINT comboMessage, UINT listMessage, WPARAM wParam = 0,
             LPARAM lParam = 0) {
    return SendMessageA(control.window, control.isListBox ? listMessage : comboMessage, wParam,
                        lParam);
}

}  // namespace

ChoiceControl ComboBox(HWND dialog, int control) {
    return {GetDlgItem(dialog, control), false};
}

ChoiceControl ListBox(HWND dialog, int control) {
    return {GetDlgItem(dialog, control), true};
}

void ClearChoices(const ChoiceControl& control) {
    Send(control, CB_RESETCONTENT, LB_RESETCONTENT);
}

int AddChoice(const ChoiceControl& control, const std::string& text) {
    return static_cast<int>(
        Send(control, CB_ADDSTRING, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str())));
}

void RemoveChoice(const ChoiceControl& control, int index) {
    Send(control, CB_DELETESTRING, LB_DELETESTRING, static_cast<WPARAM>(index));
}

int CountChoices(const ChoiceControl& control) {
    return static_cast<int>(Send(control, CB_GETCOUNT, LB_GETCOUNT));
}

std::string ChoiceText(const ChoiceControl& control, int index) {
    const auto place = static_cast<WPARAM>(index);
    const LRESULT length = Send(control, CB_GETLBTEXTLEN, LB_GETTEXTLEN, place);
    if (length <= 0) return {};
    // In a UTF-8 process the length may count fewer units than the text takes.
    std::string text(static_cast<std::size_t>(length) * 4 + 1, '\0');
    const LRESULT copied =
        Send(control, CB_GETLBTEXT, LB_GETTEXT, place, reinterpret_cast<LPARAM>(text.data()));
    if (copied < 0) return {};
    text.resize(text.find('\0'));
    return text;
}

int FindChoice(const ChoiceControl& control, std::string_view text) {
    const int count = CountChoices(control);
    for (int i = 0; i < count; ++i)
        if (ChoiceText(control, i) == text) return i;
    return -1;
}

int SelectedChoice(const ChoiceControl& control) {
    return static_cast<int>(Send(control, CB_GETCURSEL, LB_GETCURSEL));
}

void SelectChoice(const ChoiceControl& control, int index) {
    Send(control, CB_SETCURSEL, LB_SETCURSEL, static_cast<WPARAM>(index));
}

}  // namespace win
