#pragma once
#include <windows.h>

// The pages of the Options dialog.
namespace options {

// A page: a child dialog shown on a tab.
struct PageEntry {
    const char* tabText;
    int frame;                 // the page's dialog resource
    DLGPROC procedure;         // handles the page's controls
    void (*load)(HWND page);   // reads the settings into the controls
    void (*apply)(HWND page);  // stores the controls' values
};

extern const PageEntry kGeneralPage;
extern const PageEntry kStationsPage;
extern const PageEntry kAlertFiltersPage;
extern const PageEntry kTrayIconPage;
extern const PageEntry kTrayAlertsPage;
extern const PageEntry kInternetPage;

// Marks a page as changed, so that the next Apply stores it. Has no effect while pages are loaded.
void MarkChanged(HWND page);

// After an Apply: tells the user to restart the program if the General page has changed the
// location of the user's files.
void ShowRestartMessage(HWND dialog);

}  // namespace options
