#pragma once
#include <windows.h>

#include <string>

#include "settings/Product.h"
#include "win/Dialog.h"

namespace settings {

// Shows a message box with an OK button and `icon` (MB_ICONINFORMATION, ... or 0) in the
// foreground.
inline void ShowMessage(HWND owner, const std::string& text, UINT icon,
                        const char* title = SKYVANE_NAME) {
    win::ShowMessageBox(owner, text, title, MB_OK | icon | MB_SETFOREGROUND);
}

// Shows the same box with the buttons Yes and No. `style` is an icon, MB_DEFBUTTON2, both or 0.
// Returns whether Yes was chosen.
inline bool Confirm(HWND owner, const std::string& text, UINT style) {
    return win::ShowMessageBox(owner, text, SKYVANE_NAME, MB_YESNO | style | MB_SETFOREGROUND) ==
           IDYES;
}

}  // namespace settings
