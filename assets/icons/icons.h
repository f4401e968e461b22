#pragma once
// The icons that the tray, the dialogs and the program file share. The program's own comes first:
// the shell shows the icon with the lowest number for the file.
#define IDI_PROGRAM 1
#define IDI_NORMAL 2     // in the notification area: no new alerts
#define IDI_NEWALERTS 3  // in the notification area: new alerts
