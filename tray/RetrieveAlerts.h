#pragma once

namespace tray {

// Starts one retrieval cycle over all stations and returns; from then on a timer carries it along,
// whichever message loop runs, and it ends with tooltip, menu, picture, balloon and sound. Only an
// interactive cycle reports a failed download. `whenEnded` (may be null) runs after the cycle.
// Without any station it first asks for one, and returns when that dialog is closed.
//
// A cycle that starts while another one runs goes first; the other one continues after it.
void RetrieveAlerts(bool interactive, void (*whenEnded)() = nullptr);

// Waits, letting messages run, until no cycle runs any more.
void WaitForRetrieval();

}  // namespace tray
