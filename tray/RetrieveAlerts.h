#pragma once

namespace tray {

// Starts a retrieval cycle over all stations and returns. From then on a timer runs its steps,
// whichever message loop is active; at its end it updates tooltip, menu and icon, and announces new
// alerts by balloon and sound. Only an interactive cycle reports a failed download. `whenEnded`
// (may be null) is called back at the end. Without any station it first asks for one, and returns
// when that dialog is closed.
//
// A cycle that starts while another one is running takes precedence; the other one continues after
// it.
void RetrieveAlerts(bool interactive, void (*whenEnded)() = nullptr);

// Waits, handling messages, until no cycle is running.
void WaitForRetrieval();

}  // namespace tray
