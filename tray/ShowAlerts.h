#pragma once
#include <string>

namespace tray {

// Shows the alerts of all places in the browser, beginning with those of the station code: on a
// page that is written into the data folder, or, where that fails, on the web site of the source.
// Handles messages.
void ShowAlerts(const std::string& code);

}  // namespace tray
