#pragma once
// Control identifiers: the form's name and the control's name.
#define IDD_frmOptions 200
#define IDD_GeneralFrame 201
#define IDD_StationsFrame 202
#define IDD_AlertFiltersFrame 203
#define IDD_TrayIconFrame 204
#define IDD_TrayAlertsFrame 205
#define IDD_InternetFrame 206
#define IDD_InputBox 207

// The buttons numbered 1 and 2 are IDOK and IDCANCEL, so that Enter and Esc press them.
#define frmOptions_Command1 1  // "OK"
#define frmOptions_Command2 2  // "Cancel"
#define frmOptions_Tabs 1001
#define frmOptions_ApplyButton 1002
#define frmOptions_Command8 1003  // "Help"

#define frmOptions_Check4 1011   // "Retrieve severe alerts"
#define frmOptions_Check5 1012   // "Pause 30 seconds before retrieving alerts"
#define frmOptions_Check3 1013   // "Start Skyvane Alerts when Windows starts"
#define frmOptions_Combo2 1014   // "Automatically check for new severe weather alerts:"
#define frmOptions_Check28 1015  // "Store user files in the Skyvane Alerts program folder..."
#define frmOptions_SwitchedOff 1016

#define frmOptions_Combo1 1021     // "Weather Stations:"
#define frmOptions_Command6 1022   // "Add Station..."
#define frmOptions_Command23 1023  // "Edit Station..."
#define frmOptions_Command7 1024   // "Remove Station"
#define frmOptions_Command5 1025   // "Remove All"

#define frmOptions_Option6 1031       // "Show alerts that include the following words/phrases"
#define frmOptions_OptionIgnore 1032  // "Ignore alerts that include the following words/phrases"
#define frmOptions_Text3 1033         // "Type a word or phrase, and click Add."
#define frmOptions_Command9 1034      // "Add"
#define frmOptions_Command10 1035     // "Remove"
#define frmOptions_List2 1036         // words and phrases

#define frmOptions_Image4 1041     // normal icon
#define frmOptions_Command3 1042   // "Select Icon..."
#define frmOptions_Command4 1043   // "Reset Icon"
#define frmOptions_Image8 1044     // new-alerts icon
#define frmOptions_Command12 1045  // "Select Icon..." of Image8
#define frmOptions_Command11 1046  // "Reset Icon" of Image8
#define frmOptions_SingleClickCombo 1047
#define frmOptions_DoubleClickCombo 1048

#define frmOptions_Check1 1051   // "Display system tray alert"
#define frmOptions_Combo11 1052  // "Play the following sound:"
#define frmOptions_cmdTest 1053  // "Preview"

#define frmOptions_Check17 1061  // "Only attempt to download data when an Internet connection..."
#define frmOptions_Text1 1062    // "Username:"
#define frmOptions_Text2 1063    // "Password:"

#define InputBox_Prompt 1071
#define InputBox_Text 1072
