#include "tray/TrayCommands.h"

// Where the tray's wishes for a dialog lead.
namespace tray {

void ShowOptions() {}

void ShowAbout() {}

}  // namespace tray
