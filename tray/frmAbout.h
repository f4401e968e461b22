#pragma once

namespace tray {

// Shows the About box and returns when it is closed. If it is already open, brings it to the front
// and returns at once.
void ShowAboutBox();

}  // namespace tray
