#pragma once
#include <windows.h>

#include <string>

// Modal dialogs and their controls.
namespace win {

// Shows the dialog with the program's icon, brings it to the front and runs it as a modal one until
// it is closed; its owner, which may be null, is disabled meanwhile. `translate` sees each message
// first and returns whether it handled it.
void RunModal(HWND dialog, bool (*translate)(const MSG&) = nullptr);

// Closes a dialog run by RunModal.
void EndModal(HWND dialog);

// A dialog in the program's resources.
struct DialogForm {
    int resource;
    DWORD controlClasses;  // ICC_..., in addition to the standard classes
    DLGPROC procedure;
};

// Creates a dialog and runs it by RunModal. Returns false if it cannot be created.
bool ShowModal(const DialogForm& form, HWND owner = nullptr,
               bool (*translate)(const MSG&) = nullptr);

// Creates a dialog of the program's resources without showing it, or a page of one. The procedure
// receives `parameter` with WM_INITDIALOG. Returns null if it cannot be created.
HWND CreateForm(int resource, HWND owner, DLGPROC procedure, LPARAM parameter = 0);

// Shows a message box of the style MB_... Returns the identifier of the button that closed it.
int ShowMessageBox(HWND owner, const std::string& text, const std::string& title, UINT style);

// Return and set the text of a control or window.
std::string ControlText(HWND dialog, int control);
std::string WindowText(HWND window);
void SetControlText(HWND dialog, int control, const std::string& text);

bool IsChecked(HWND dialog, int control);
void SetChecked(HWND dialog, int control, bool checked);
// A disabled control that has the focus passes it to the control before it.
void EnableControl(HWND dialog, int control, bool enable);

// Inserts a tab with this text, which the tab control shows at the given place, counted from 0.
void InsertTab(HWND tabs, std::size_t place, const std::string& text);

}  // namespace win
