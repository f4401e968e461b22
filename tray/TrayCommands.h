#pragma once

// The commands behind the tray menu's fixed items, and the shutdown.
namespace tray {

void mnuRetrieveSevereAlerts_Click();
void mnuViewNationalSevereAlerts_Click();
void mnuOptions_Click();
void mnuVisitQuillmark_Click();
// Starts the shutdown, which runs once the current event has returned.
void mnuExit_Click();

// Runs the command of a fixed menu item; other identifiers do nothing.
void RunFixedCommand(unsigned identifier);

// Runs the command that was put off until the event before it had returned.
void RunFiredEvent();

// Removes the icon and every trace of the run, and ends the process.
[[noreturn]] void ShutDown();

// The one wish that goes up: the Options dialog stands above the tray, and app/ says where. Returns
// when the dialog is closed, at once when it is already open (which brings it to the front).
void ShowOptions();

}  // namespace tray
