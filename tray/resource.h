#pragma once
// The tray menu's fixed items. Their identifiers stay below kFixedItemsEnd.
#define IDR_TRAYMENUBAR 100
#define mnuAlertsAvailable 101           // "(No Alerts Available)"
#define mnuRetrieveSevereAlerts 102      // "Retrieve Severe Alerts"
#define mnuViewNationalSevereAlerts 103  // "View National Severe Alerts"
#define mnuOptions 104                   // "Options"
#define mnuAbout 105                     // "About"
#define mnuSupportForums 106             // "Support Forums"
#define mnuSendBugReport 107             // "Send Bug Report"
#define mnuCheckForNewVersion 108        // "Check for New Version"
#define mnuVisitQuillmark 109            // "Visit Quillmark Software"
#define mnuSupportQuillmark 110          // "Support Quillmark Software"
#define mnuExit 111                      // "Exit"

// The About box.
#define IDD_frmAbout 120
#define IDB_WEATHERBUG 121     // 120 pixels wide
#define IDB_WEATHERBUG150 122  // 180 pixels wide
#define IDB_WEATHERBUG200 123  // 240 pixels wide
#define frmAbout_Command1 1    // "OK"
#define frmAbout_Label1 1101   // program name and version
#define frmAbout_Label2 1102   // copyright
#define frmAbout_Label3 1103   // link: the maker's web site
#define frmAbout_Label4 1104   // link: the maker's e-mail address
#define frmAbout_Label5 1105   // "Skyvane Alerts is powered by real-time WeatherBug weather"
#define frmAbout_Label6 1106   // the sentence's second line
#define frmAbout_Image1 1107   // the program's icon
#define frmAbout_Image2 1108   // the WeatherBug logo, a button
