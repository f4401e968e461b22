#pragma once
#include <windows.h>

#include <optional>
#include <string>

namespace search {

// Shows the station search over its owner and returns when it is closed. Returns the station line
// that the user chose, or nullopt. Searches disable `stationCombo`; closing the dialog enables it.
// Returns nullopt at once when the search is already open.
std::optional<std::string> ShowSearchDialog(HWND owner, HWND stationCombo);

}  // namespace search
