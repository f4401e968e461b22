#pragma once
#include <windows.h>

#include <optional>
#include <string>

namespace search {

// Shows the station search over its owner and returns when it is closed: the station line that the
// user chose, or nothing. `stationCombo` is off while a search runs and on again at the end.
std::optional<std::string> ShowSearchDialog(HWND owner, HWND stationCombo);

}  // namespace search
