#pragma once
#include <windows.h>

#include <string>

namespace options {

// Asks the user for a line of text, at first `text`. Returns the empty text when the user cancels.
std::string ShowInputBox(HWND owner, const std::string& prompt, const std::string& text);

}  // namespace options
