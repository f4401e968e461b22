#pragma once
#include <windows.h>

#include <string>

// The message queue and the boxes that the program speaks through.
namespace win {

// Titles every message box and names the settings' place in the registry.
inline constexpr char kProgramName[] = "Skyvane Alerts";

// Gives the message to the dialog that it is meant for, if it is a dialog's keyboard message;
// whether it was. Any dialog of the process counts, so that each keeps its keyboard whichever loop
// runs.
bool IsForDialog(MSG& message);

// Dispatches every pending message and returns; keyboard messages of a dialog go through the dialog
// manager first, so that Tab, Enter and Esc work while a handler waits.
void PumpPendingMessages();

// PumpPendingMessages, but for calls within 15 ms of one that did it: for loops whose steps cost
// less than a look at the queue.
void PumpNowAndThen();

// Like PumpPendingMessages, but with an empty queue it first sleeps until a message comes, `other`
// (which may be null) is signalled, or `milliseconds` have passed.
void PumpOrWait(DWORD milliseconds, HANDLE other = nullptr);

// Shows a message box with OK and `icon` (MB_ICONINFORMATION, ...), brought to the foreground.
void ShowMessage(HWND owner, const std::string& text, UINT icon, const char* title = kProgramName);

// The same with Yes and No; true for Yes.
bool Confirm(HWND owner, const std::string& text, UINT icon);

}  // namespace win
