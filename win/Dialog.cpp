#include "win/Dialog.h"

#include "win/Images.h"
#include "win/LateFunctions.h"
#include "win/MessageLoop.h"

namespace win {

void RunModal(HWND dialog, bool (*translate)(const MSG&)) {
    if (!dialog) return;
    const HWND owner = GetWindow(dialog, GW_OWNER);
    if (owner) EnableWindow(owner, FALSE);
    MSG message{};
    while (IsWindow(dialog) && GetMessageW(&message, nullptr, 0, 0) > 0) {
        if ((translate && translate(message)) || IsForDialog(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    if (IsWindow(dialog)) {  // WM_QUIT ended the loop
        PostQuitMessage(static_cast<int>(message.wParam));
        EndModal(dialog);
    }
}

void EndModal(HWND dialog) {
    // The owner first: otherwise the system brings another program's window to the front.
    if (const HWND owner = GetWindow(dialog, GW_OWNER)) EnableWindow(owner, TRUE);
    DestroyWindow(dialog);
}

static void PresentDialog(HWND dialog) {
    const auto setIcon = [&](WPARAM kind, int size) {
        SendMessageA(dialog, WM_SETICON, kind,
                     reinterpret_cast<LPARAM>(LoadSharedIcon(kProgramIcon, size)));
    };
    setIcon(ICON_BIG, LargeIconSize());
    setIcon(ICON_SMALL, SmallIconSize());
    ShowWindow(dialog, SW_SHOW);
    SetForegroundWindow(dialog);
}

bool ShowModal(const DialogForm& form, HWND owner, bool (*translate)(const MSG&)) {
    INITCOMMONCONTROLSEX controls{sizeof controls, form.controlClasses | ICC_STANDARD_CLASSES};
    late::InitCommonControlsEx(&controls);
    const HWND dialog = CreateDialogParamA(
        GetModuleHandleA(nullptr), MAKEINTRESOURCEA(form.resource), owner, form.procedure, 0);
    if (!dialog) return false;
    PresentDialog(dialog);
    RunModal(dialog, translate);
    return true;
}

std::string WindowText(HWND window) {
    // In a UTF-8 process the length may count fewer units than the text has bytes.
    std::string text(static_cast<std::size_t>(GetWindowTextLengthA(window)) * 4 + 1, '\0');
    text.resize(static_cast<std::size_t>(
        GetWindowTextA(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

std::string ControlText(HWND dialog, int control) {
    return WindowText(GetDlgItem(dialog, control));
}

void SetControlText(HWND dialog, int control, const std::string& text) {
    SetDlgItemTextA(dialog, control, text.c_str());
}

bool IsChecked(HWND dialog, int control) {
    return IsDlgButtonChecked(dialog, control) == BST_CHECKED;
}

void SetChecked(HWND dialog, int control, bool checked) {
    CheckDlgButton(dialog, control, checked ? BST_CHECKED : BST_UNCHECKED);
}

void EnableControl(HWND dialog, int control, bool enable) {
    const HWND window = GetDlgItem(dialog, control);
    // A disabled control with the focus would swallow the keyboard.
    if (!enable && GetFocus() == window)
        SendMessageA(GetAncestor(dialog, GA_ROOT), WM_NEXTDLGCTL, TRUE, FALSE);
    EnableWindow(window, enable);
}

}  // namespace win
