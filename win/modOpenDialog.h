#pragma once
#include <windows.h>

#include <string>

namespace win {

// The contents of a file-open dialog.
struct OpenFileRequest {
    std::string filter;  // pairs "name|pattern", joined by "|"
    std::string title;
    std::string startFolder;
};

// Shows the system's file-open dialog in the centre of the screen. Returns the chosen path; empty
// if it is cancelled.
std::string ShowOpenFileDialog(HWND owner, const OpenFileRequest& request);

}  // namespace win
