#pragma once
#include <windows.h>

#include <string>

#include "win/Handle.h"

// The one icon in the notification area. Results of the shell are not looked at: a failed add
// leaves the program without an icon until the taskbar is made anew.
namespace tray {

// The tray pictures: the built-in ones, or those of the user's files.
struct TrayImages {
    win::Icon ImageIcon;   // normal
    win::Icon ImageIcon2;  // new alerts
};
TrayImages& Images();

// Loads the built-in pictures.
void LoadBuiltInImages();

// Replaces a picture by the icon of the file; a missing file or one that is no icon leaves it.
void ReplaceImage(win::Icon& image, const std::string& path);

// Fills the whole record, sets the tooltip from the stored time of the last update, adds the icon.
void AddTrayIcon();

// Shows the text in a balloon on the icon.
void ShowTrayBalloon(const std::string& message);

void RemoveTrayIcon();

// Puts the normal picture on the icon.
void RefreshTrayIconImage();

// Puts the new-alerts picture on the icon.
void ShowNewAlertImage();

// Sets the tooltip, cut to what the record holds (127 bytes).
void SetTrayTip(const std::string& tip);

// Sets the tooltip from the time of the last update; an empty text changes nothing.
void UpdateTrayTip(const std::string& lastUpdated);

}  // namespace tray
