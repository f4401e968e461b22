#pragma once

// The one upward call: the tray opens the Options dialog, which is in a higher layer. Both
// functions are implemented in app/Dialogs.cpp.
namespace tray {

// Shows the Options dialog and returns when it is closed. If it is already open, brings it to the
// front and returns at once.
void ShowOptions();

// The same, with the Stations page in front, also if the dialog is already open.
void ShowStationOptions();

}  // namespace tray
