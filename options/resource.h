#pragma once
// Control identifiers: the form's name and the control's own.
#define IDD_frmOptions 200
#define IDD_GeneralFrame 201
#define IDD_StationsFrame 202
#define IDD_AlertFiltersFrame 203
#define IDD_TrayIconFrame 204
#define IDD_TrayAlertsFrame 205
#define IDD_InternetFrame 206
#define IDD_InputBox 207

// OK and Cancel are the platform's IDOK and IDCANCEL, so that Enter and Esc do what they say.
#define frmOptions_Command1 1
#define frmOptions_Command2 2
#define frmOptions_Tabs 1001
#define frmOptions_ApplyButton 1002
#define frmOptions_Command8 1003

#define frmOptions_Check4 1011
#define frmOptions_Check5 1012
#define frmOptions_Check3 1013
#define frmOptions_Combo2 1014
#define frmOptions_Check28 1015

#define frmOptions_Combo1 1021
#define frmOptions_Command6 1022
#define frmOptions_Command23 1023
#define frmOptions_Command7 1024
#define frmOptions_Command5 1025

#define frmOptions_Option6 1031
#define frmOptions_OptionIgnore 1032
#define frmOptions_Text3 1033
#define frmOptions_Command9 1034
#define frmOptions_Command10 1035
#define frmOptions_List2 1036

#define frmOptions_Image4 1041
#define frmOptions_Command3 1042
#define frmOptions_Command4 1043
#define frmOptions_Image8 1044
#define frmOptions_Command12 1045
#define frmOptions_Command11 1046
#define frmOptions_SingleClickCombo 1047
#define frmOptions_DoubleClickCombo 1048

#define frmOptions_Check1 1051
#define frmOptions_Combo11 1052
#define frmOptions_cmdTest 1053

#define frmOptions_Check17 1061
#define frmOptions_Text1 1062
#define frmOptions_Text2 1063

#define InputBox_Prompt 1071
#define InputBox_Text 1072
