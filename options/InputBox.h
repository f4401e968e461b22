#pragma once
#include <windows.h>

#include <string>

namespace options {

// Asks for a line of text, with `text` to begin from; empty when it is cancelled.
std::string ShowInputBox(HWND owner, const std::string& prompt, const std::string& text);

}  // namespace options
