#pragma once

namespace tray {

// One retrieval cycle over all stations and the telling of it: tooltip, menu, picture, balloon,
// sound. Only an interactive cycle reports a failed download. Lets messages run.
void RetrieveAlerts(bool interactive);

}  // namespace tray
