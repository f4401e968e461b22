#pragma once
#include <string>
#include <string_view>

namespace tray {

// Returns the icon's tooltip for the stored time of the last update, or an empty text if
// `lastUpdated` is empty. `dateOfUpdate` and `today` are short dates. An update of today shows its
// time alone; an older one shows date and time, with " @ " for every space, deliberately also for
// the one before AM or PM.
std::string TrayTip(std::string_view lastUpdated, std::string_view dateOfUpdate,
                    std::string_view today);

}  // namespace tray
