#pragma once
#include <windows.h>

#include <string>

namespace win {

// Hands an address or document to the shell's "Open" verb, from the program folder, in a normal
// window. An address that nothing is registered for does nothing.
void OpenInBrowser(HWND owner, const std::string& address);

}  // namespace win
