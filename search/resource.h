#pragma once
// Control identifiers: the form's name and the control's own.
#define IDD_frmSearch 300
#define IDD_frmSearchChoose 301

// The small icons of ImageList1, in its order.
#define IDI_STATION 10
#define IDI_NETWORK 11
#define IDI_PLACE 12

// Search and Cancel are the platform's IDOK and IDCANCEL.
#define frmSearch_Command1 1
#define frmSearch_Command2 2
#define frmSearch_Command3 1201
#define frmSearch_Text1 1202
#define frmSearch_StationList 1203
#define frmSearch_mashupbrowser 1204
#define frmSearch_Label1 1205
#define frmSearch_Label25 1206
#define frmSearch_Shape1 1207
#define frmSearch_CityClickedTimer 1208

#define frmSearchChoose_Command3 1
#define frmSearchChoose_Command2 2
#define frmSearchChoose_LocationList 1301
#define frmSearchChoose_Label25 1302
#define frmSearchChoose_Shape1 1303
