#include "win/Dialog.h"

#include "win/CodePage.h"
#include "win/DialogScaling.h"
#include "win/LateFunctions.h"
#include "win/MessageLoop.h"

namespace win {

void RunModal(HWND dialog, bool (*translate)(const MSG&)) {
    if (!dialog) return;
    const DialogScaling scaling(dialog);
    ShowWindow(dialog, SW_SHOW);
    SetForegroundWindow(dialog);
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

bool ShowModal(const DialogForm& form, HWND owner, bool (*translate)(const MSG&)) {
    INITCOMMONCONTROLSEX controls{sizeof controls, form.controlClasses | ICC_STANDARD_CLASSES};
    late::InitCommonControlsEx(&controls);
    const HWND dialog = CreateForm(form.resource, owner, form.procedure);
    if (!dialog) return false;
    RunModal(dialog, translate);
    return true;
}

HWND CreateForm(int resource, HWND owner, DLGPROC procedure, LPARAM parameter) {
    return CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(resource), owner,
                              procedure, parameter);
}

int ShowMessageBox(HWND owner, const std::string& text, const std::string& title, UINT style) {
    return MessageBoxW(owner, ToWide(text).c_str(), ToWide(title).c_str(), style);
}

std::string WindowText(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(
        GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return FromWide(text);
}

std::string ControlText(HWND dialog, int control) {
    return WindowText(GetDlgItem(dialog, control));
}

void SetControlText(HWND dialog, int control, const std::string& text) {
    SetDlgItemTextW(dialog, control, ToWide(text).c_str());
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
        SendMessageW(GetAncestor(dialog, GA_ROOT), WM_NEXTDLGCTL, TRUE, FALSE);
    EnableWindow(window, enable);
}

void InsertTab(HWND tabs, std::size_t place, const std::string& text) {
    std::wstring wide = ToWide(text);
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = wide.data();
    SendMessageW(tabs, TCM_INSERTITEMW, place, reinterpret_cast<LPARAM>(&item));
}

}  // namespace win
