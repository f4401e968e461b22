#pragma once
#include <windows.h>

#include <string_view>

namespace alerts {

// Downloads the version file from the maker's web site and offers a newer version. Mode "Yes"
// reports every outcome; "No" reports only a newer version that has not been announced before. Does
// nothing while another check is running. Handles messages while it waits.
void CheckVersion(HWND owner, std::string_view mode);

}  // namespace alerts
