#pragma once
#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace search {

// Lets the user choose one of the locations and returns its row, counted from 0. Returns nullopt
// when the user cancels, and at once, without a dialog, when there are no rows or the chooser is
// open.
std::optional<std::size_t> ShowLocationChooser(HWND owner, const std::vector<std::string>& rows);

// Cancels the chooser if it is open.
void CloseLocationChooser();

}  // namespace search
