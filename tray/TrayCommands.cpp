#include "tray/TrayCommands.h"

#include <windows.h>

#include <string>

#include "alerts/VersionCheck.h"
#include "alerts/modDownloader.h"
#include "settings/Addresses.h"
#include "settings/IniOpenSave.h"
#include "settings/ProgramState.h"
#include "stations/StationLine.h"
#include "stations/StationList.h"
#include "tray/OptionsDialog.h"
#include "tray/RetrieveAlerts.h"
#include "tray/TrayWindow.h"
#include "tray/frmAbout.h"
#include "tray/modExplorerMonitor.h"
#include "tray/modTrayIcon.h"
#include "tray/modTrayMenu.h"
#include "tray/resource.h"
#include "win/MessageLoop.h"
#include "win/Shell.h"
#include "win/modRandomFile.h"

namespace tray {
namespace {

void Open(const std::string& address) {
    win::OpenInBrowser(TrayWindow(), address);
}

}  // namespace

void mnuRetrieveSevereAlerts_Click() {
    StartTimer(Timer::TimerFireEvent);
}

void mnuViewNationalSevereAlerts_Click() {
    Open(settings::NationalMapPage(stations::CodeForNationalMap(stations::StationAt(0))));
}

void mnuOptions_Click() {
    ShowOptions();
}

void mnuVisitQuillmark_Click() {
    Open(settings::MakerHost());
}

void mnuExit_Click() {
    StartTimer(Timer::TimerUnload);
}

void RunFixedCommand(unsigned identifier) {
    switch (identifier) {
        case mnuRetrieveSevereAlerts:
            return mnuRetrieveSevereAlerts_Click();
        case mnuViewNationalSevereAlerts:
            return mnuViewNationalSevereAlerts_Click();
        case mnuOptions:
            return mnuOptions_Click();
        case mnuAbout:
            return ShowAboutBox();
        case mnuSupportForums:
            return Open(settings::SupportForumPage());
        case mnuSendBugReport:
            return Open(settings::BugReportPage());
        case mnuCheckForNewVersion:
            return alerts::CheckVersion(TrayWindow(), "Yes");
        case mnuVisitQuillmark:
            return mnuVisitQuillmark_Click();
        case mnuSupportQuillmark:
            return Open(settings::DonationPage());
        case mnuExit:
            return mnuExit_Click();
        default:
            return;
    }
}

void RetrieveByCommand() {
    EnableRetrieveItem(false);
    win::PumpPendingMessages();
    RetrieveAlerts(true, [] { EnableRetrieveItem(true); });
}

void ShutDown() {
    RemoveTrayIcon();
    RemoveMenuSubclass();
    alerts::AbandonDownloads();
    settings::StoreHeldSettings();
    // A second copy must leave the files that a search of the first copy may be waiting for.
    if (settings::State().isFirstCopy) win::DeleteTempFiles(alerts::kSearchPrefix);
    settings::State().runningMutex.Reset();
    StopExplorerMonitor(TrayWindow());
    ExitProcess(0);
}

}  // namespace tray
