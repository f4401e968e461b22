#pragma once
#include <windows.h>

#include <string>

namespace win {

// What a file-open dialog offers.
struct OpenFileRequest {
    std::string filter;  // "name|pattern" pairs joined by bars
    std::string title;
    std::string startFolder;
};

// Shows the system's file-open dialog in the centre of the screen; the chosen path, or empty when
// it is cancelled.
std::string ShowOpenFileDialog(HWND owner, const OpenFileRequest& request);

}  // namespace win
