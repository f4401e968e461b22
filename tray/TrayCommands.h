#pragma once

// The commands of the tray menu's fixed items, and the shutdown.
namespace tray {

// Schedules RetrieveByCommand, which runs after the current event has returned.
void mnuRetrieveSevereAlerts_Click();
// Opens the national alert map in the browser.
void mnuViewNationalSevereAlerts_Click();
void mnuOptions_Click();
// Opens the maker's web site in the browser.
void mnuVisitQuillmark_Click();
// Schedules the shutdown, which runs after the current event has returned.
void mnuExit_Click();

// Runs the command of a fixed menu item; ignores other identifiers.
void RunFixedCommand(unsigned identifier);

// Starts a retrieval that reports its failure; the menu item is disabled while it runs.
void RetrieveByCommand();

// Removes the icon, ends running downloads, stores the settings, deletes temporary files and ends
// the process.
[[noreturn]] void ShutDown();

}  // namespace tray
