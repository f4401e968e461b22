#include "tray/RetrieveAlerts.h"

#include <windows.h>

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "alerts/AlertFeedRules.h"
#include "alerts/RetrievalCycle.h"
#include "settings/Hosts.h"
#include "settings/IniOpenSave.h"
#include "settings/ProgramState.h"
#include "stations/StationList.h"
#include "tray/OptionsDialog.h"
#include "tray/modTrayIcon.h"
#include "tray/modTrayMenu.h"
#include "win/Dates.h"
#include "win/Files.h"
#include "win/Messages.h"
#include "win/NeverDestroyed.h"
#include "win/modPlaySound.h"

namespace tray {
namespace {

constexpr char kNoStationQuestion[] =
    "Before attempting to retrieve the alert information, you must\r\n"
    "select a station to watch in the \"Stations\" section of the Skyvane Alerts Options.\r\n\r\n"
    "Would you like to select a station now?";

constexpr char kNewAlertsMessage[] =
    "New severe weather alerts have been discovered.\r\n\r\n"
    "Note: Right-click the Skyvane Alerts system tray icon for more information.";

// A cycle on its way, and what belongs to its end.
struct RunningCycle {
    alerts::RetrievalCycle cycle;
    bool interactive;
    void (*whenEnded)();
};

// The newest one last.
std::vector<std::unique_ptr<RunningCycle>>& cycles =
    win::NeverDestroyed<std::vector<std::unique_ptr<RunningCycle>>>();

bool askingForStation = false;
UINT_PTR stepTimer = 0;    // while cycles run
UINT_PTR unreadTimer = 0;  // while the station file cannot be read

void OfferStationChoice() {
    askingForStation = true;
    if (win::Confirm(nullptr, kNoStationQuestion, MB_ICONINFORMATION)) ShowStationOptions();
    askingForStation = false;
}

void RecordUpdate() {
    const std::string now = win::GeneralDateNow();
    settings::WriteSetting(settings::kLastUpdated, now);
    UpdateTrayTip(now);
    BuildAlertsMenu();
}

// The sound hangs on the flashing option and comes from the program folder, not from the data
// folder's copy; both are deliberate.
void PlayChosenSound() {
    using namespace settings;
    if (!IsTrue(ReadSetting(kFlashTrayIcon))) return;
    const std::string name = ReadSetting(kTrayAlertSound);
    if (name.empty() || name == kNoSound) return;
    const std::string path = State().programFolder + "\\Sounds\\" + name;
    if (win::FileExists(path)) win::PlayAlertSound(path, win::kPlayOnce);
}

void AnnounceNewAlerts() {
    ShowNewAlertImage();
    settings::State().newAlertIconShown = true;
    if (settings::IsTrue(settings::ReadSetting(settings::kDisplayTrayAlert)))
        ShowTrayBalloon(kNewAlertsMessage);
    PlayChosenSound();
}

void EndCycle(const alerts::CycleOutcome& outcome, bool interactive, void (*whenEnded)()) {
    if (!outcome.failed) {
        RecordUpdate();
        if (outcome.newAlerts > 0) AnnounceNewAlerts();
    }
    settings::State().lastCycleEnd = GetTickCount64();
    if (outcome.failed && interactive)
        win::ShowMessage(nullptr, alerts::FailureMessage(settings::WeatherHost()),
                         MB_ICONINFORMATION);
    settings::State().minuteCounter = 0;
    if (whenEnded) whenEnded();
}

// Takes a step of the newest cycle. The open menu gets all input: neither a message box nor a new
// menu item may come up from inside its loop.
void CALLBACK ContinueCycle(HWND, UINT, UINT_PTR, DWORD) {
    static bool isStepping = false;
    if (isStepping || IsTrayMenuOpen() || cycles.empty()) return;
    isStepping = true;
    RunningCycle* const newest = cycles.back().get();
    const auto outcome = newest->cycle.Continue();
    isStepping = false;
    if (!outcome) return;
    // Settings that are waited for let messages run: a newer cycle may have started meanwhile.
    const auto place = std::ranges::find(cycles, newest, &std::unique_ptr<RunningCycle>::get);
    const auto ended = std::move(*place);
    cycles.erase(place);
    if (cycles.empty()) KillTimer(nullptr, std::exchange(stepTimer, 0));
    EndCycle(*outcome, ended->interactive, ended->whenEnded);
}

void StartCycle(bool interactive, void (*whenEnded)()) {
    constexpr UINT stepMilliseconds = 15;
    cycles.emplace_back(new RunningCycle{{}, interactive, whenEnded});
    if (!stepTimer) stepTimer = SetTimer(nullptr, 0, stepMilliseconds, ContinueCycle);
}

// Makes up for a retrieval that came while the station file could not be read.
void CALLBACK RetrieveWhenRead(HWND, UINT, UINT_PTR, DWORD) {
    if (IsTrayMenuOpen()) return;
    LoadUnreadStations();
    if (stations::IsStationListUnread() || !unreadTimer) return;
    KillTimer(nullptr, std::exchange(unreadTimer, 0));
    if (settings::State().stationCount > 0) StartCycle(false, nullptr);
}

}  // namespace

void RetrieveAlerts(bool interactive, void (*whenEnded)()) {
    LoadUnreadStations();
    if (settings::State().stationCount == 0 && stations::IsStationListUnread()) {
        constexpr UINT retryMilliseconds = 1000;
        if (!unreadTimer) unreadTimer = SetTimer(nullptr, 0, retryMilliseconds, RetrieveWhenRead);
        return EndCycle({true, 0}, interactive, whenEnded);
    }
    if (settings::State().stationCount == 0) {
        if (askingForStation) {  // one question is enough
            if (whenEnded) whenEnded();
            return;
        }
        OfferStationChoice();
    }
    if (settings::State().stationCount > 0)
        StartCycle(interactive, whenEnded);
    else
        EndCycle({}, interactive, whenEnded);
}

void WaitForRetrieval() {
    constexpr DWORD longestSleep = 1000;
    while (!cycles.empty()) win::PumpOrWait(longestSleep);
}

}  // namespace tray
