#pragma once
#include <windows.h>
#include <commctrl.h>

#include <optional>
#include <string>
#include <vector>

namespace search {

// Lets the user choose one of the locations: its row counted from 0. Nothing when the choice is
// cancelled, and at once, without a dialog, when there are no rows.
std::optional<std::size_t> ShowLocationChooser(HWND owner, const std::vector<std::string>& rows,
                                               HIMAGELIST images);

// Cancels the choice if one is under way.
void CloseLocationChooser();

}  // namespace search
