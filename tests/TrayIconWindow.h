#pragma once
#include <string>

namespace tests {

// The classes of the window that Wine creates for an icon in the notification area. Newer versions
// of Wine use the second one.
inline const std::string kTrayIconClasses[] = {"__winex11_tray_icon", "__wine_tray_icon"};

}  // namespace tests
