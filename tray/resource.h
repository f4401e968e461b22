#pragma once
// The tray's menu items and pictures. Item identifiers stay below kFixedItemsEnd.
#define IDR_TRAYMENUBAR 100
#define mnuAlertsAvailable 101
#define mnuRetrieveSevereAlerts 102
#define mnuViewNationalSevereAlerts 103
#define mnuOptions 104
#define mnuAbout 105
#define mnuSupportForums 106
#define mnuSendBugReport 107
#define mnuCheckForNewVersion 108
#define mnuVisitQuillmark 109
#define mnuSupportQuillmark 110
#define mnuExit 111

#define IDD_frmAbout 120
#define IDB_WEATHERBUG 121
#define frmAbout_Command1 1
#define frmAbout_Label1 1101
#define frmAbout_Label2 1102
#define frmAbout_Label3 1103
#define frmAbout_Label4 1104
#define frmAbout_Label5 1105
#define frmAbout_Label6 1106
#define frmAbout_Image1 1107
#define frmAbout_Image2 1108
