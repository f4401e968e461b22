#pragma once
#include <windows.h>

#include <string>

// What every dialog of the program does the same way.
namespace win {

// Runs the dialog until it is gone, as a modal one: its owner (which may be null) is disabled
// meanwhile. `translate` sees each message first; true means that it took it.
void RunModal(HWND dialog, bool (*translate)(const MSG&) = nullptr);

// Closes a dialog that RunModal runs.
void EndModal(HWND dialog);

// A dialog of the program's resources.
struct DialogForm {
    int resource;
    int icon;
    DWORD controlClasses;  // of common controls (ICC_...), beside the standard ones
    DLGPROC procedure;
};

// Makes the dialog, gives it its icon, puts it in front, and runs it as a modal one. False when it
// cannot be made.
bool ShowModal(const DialogForm& form, HWND owner = nullptr,
               bool (*translate)(const MSG&) = nullptr);

// The text of a control, whole.
std::string ControlText(HWND dialog, int control);
std::string WindowText(HWND window);
void SetControlText(HWND dialog, int control, const std::string& text);

bool IsChecked(HWND dialog, int control);
void SetChecked(HWND dialog, int control, bool checked);
// A control that loses the keyboard by this hands it to the one before.
void EnableControl(HWND dialog, int control, bool enable);

}  // namespace win
