#pragma once
#include <windows.h>

#include <string>

namespace win {

// Hands an address or document to the shell's "Open" verb, from the program folder, in a normal
// window. The shell itself speaks up when nothing is registered for it.
void OpenInBrowser(HWND owner, const std::string& address);

}  // namespace win
