#pragma once
#include <windows.h>

#include <string_view>

namespace alerts {

// Fetches the version file from the maker's web site and offers a newer version. Mode "Yes" reports
// every outcome; "No" speaks only of a newer version that it has not announced before. A check that
// is under way makes a second call do nothing. Lets messages run.
void CheckVersion(HWND owner, std::string_view mode);

}  // namespace alerts
