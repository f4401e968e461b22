#include "options/InputBox.h"

#include "options/resource.h"
#include "win/Dialog.h"

namespace options {
namespace {

struct InputBox {
    const std::string& prompt;
    std::string text;
    bool accepted = false;
};

INT_PTR CALLBACK InputBoxProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* box = reinterpret_cast<InputBox*>(GetWindowLongPtrW(dialog, DWLP_USER));
    switch (message) {
        case WM_INITDIALOG:
            box = reinterpret_cast<InputBox*>(lParam);
            SetWindowLongPtrW(dialog, DWLP_USER, lParam);
            win::SetControlText(dialog, InputBox_Prompt, box->prompt);
            win::SetControlText(dialog, InputBox_Text, box->text);
            SendDlgItemMessageW(dialog, InputBox_Text, EM_SETSEL, 0, -1);
            SetFocus(GetDlgItem(dialog, InputBox_Text));
            return FALSE;
        case WM_COMMAND:
            if (LOWORD(wParam) != IDOK && LOWORD(wParam) != IDCANCEL) return FALSE;
            box->accepted = LOWORD(wParam) == IDOK;
            box->text = win::ControlText(dialog, InputBox_Text);
            win::EndModal(dialog);
            return TRUE;
        default:
            return FALSE;
    }
}

}  // namespace

std::string ShowInputBox(HWND owner, const std::string& prompt, const std::string& text) {
    InputBox box{prompt, text};
    const HWND dialog =
        win::CreateForm(IDD_InputBox, owner, InputBoxProcedure, reinterpret_cast<LPARAM>(&box));
    win::RunModal(dialog);
    return box.accepted ? box.text : std::string();
}

}  // namespace options
