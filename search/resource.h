#pragma once
// Control identifiers: the form's name and the control's name.
#define IDD_frmSearch 300
#define IDD_frmSearchChoose 301

// The size of frmSearch in dialog units.
#define frmSearch_Width 474
#define frmSearch_Height 266

// The small icons of ImageList1, in its order.
#define IDI_STATION 10
#define IDI_NETWORK 11
#define IDI_PLACE 12

// The buttons numbered 1 and 2 are IDOK and IDCANCEL, so that Enter and Esc press them.
#define frmSearch_Command1 1     // "Search"
#define frmSearch_Command2 2     // "Cancel"
#define frmSearch_Command3 1201  // "Add Station"
#define frmSearch_Text1 1202     // city or ZIP code
#define frmSearch_StationList 1203
#define frmSearch_mashupbrowser 1204     // map
#define frmSearch_Label1 1205            // status
#define frmSearch_Label25 1206           // "Enter the name or zip code of your city below..."
#define frmSearch_Shape1 1207            // frame
#define frmSearch_CityClickedTimer 1208  // timer

#define frmSearchChoose_Command3 1  // "OK"
#define frmSearchChoose_Command2 2  // "Cancel"
#define frmSearchChoose_LocationList 1301
#define frmSearchChoose_Label25 1302  // "More than one location matched your search..."
#define frmSearchChoose_Shape1 1303   // frame
