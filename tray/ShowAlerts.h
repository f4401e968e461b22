#pragma once
#include <string>

namespace tray {

// Writes the page with the alerts of all places, beginning with those of the station code, into a
// file: completely or not at all. Returns whether it could. Handles messages.
bool WriteAlertPage(const std::string& code, const std::string& path);

// Shows the alerts of all places in the browser, beginning with those of the station code: on a
// page that is written into the data folder, or, where that fails, on the web site of the source.
// Handles messages.
void ShowAlerts(const std::string& code);

}  // namespace tray
