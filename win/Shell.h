#pragma once
#include <windows.h>

#include <string>

namespace win {

// Opens an address or document by the shell's "Open" verb, in the program folder. The shell itself
// shows a message if no program is registered for it.
void OpenInBrowser(HWND owner, const std::string& address);

// Opens a document by the shell's "Open" verb. Returns false, without a message, if that fails.
bool OpenDocument(HWND owner, const std::string& path);

}  // namespace win
