#pragma once

namespace tray {

// Shows the About box and returns when it is closed; one that is open already comes to the front.
void ShowAboutBox();

}  // namespace tray
