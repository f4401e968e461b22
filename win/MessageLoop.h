#pragma once
#include <windows.h>

// The message queue of the program's one thread.
namespace win {

// Passes a keyboard message to the dialog it belongs to, whichever loop runs, so that every dialog
// of the process keeps its keyboard. Returns whether a dialog took the message.
bool IsForDialog(MSG& message);

// Dispatches every pending message and returns. Keyboard messages go through IsForDialog first, so
// that Tab, Enter and Esc work while a handler waits.
void PumpPendingMessages();

// Like PumpPendingMessages, but with an empty queue it first sleeps until a message comes, `other`
// (which may be null) is signalled, or `milliseconds` have passed.
void PumpOrWait(DWORD milliseconds, HANDLE other = nullptr);

}  // namespace win
