#include "tray/RetrieveAlerts.h"

#include <windows.h>

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "alerts/RetrievalCycle.h"
#include "settings/Addresses.h"
#include "settings/Folders.h"
#include "settings/IniOpenSave.h"
#include "settings/MessageBoxes.h"
#include "settings/ProgramState.h"
#include "stations/StationList.h"
#include "tray/OptionsDialog.h"
#include "tray/modTrayIcon.h"
#include "tray/modTrayMenu.h"
#include "win/Dates.h"
#include "win/Files.h"
#include "win/MessageLoop.h"
#include "win/NeverDestroyed.h"
#include "win/Text.h"
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

// A cycle and what to do when it has ended.
struct RunningCycle {
    alerts::RetrievalCycle cycle;
    bool interactive;
    void (*whenEnded)();
};

// All running cycles, the newest one last.
std::vector<std::unique_ptr<RunningCycle>>& cycles =
    win::NeverDestroyed<std::vector<std::unique_ptr<RunningCycle>>>();

bool isAskingForStation = false;
UINT_PTR stepTimer = 0;    // runs while there are cycles
UINT_PTR unreadTimer = 0;  // runs while the station file cannot be read

void OfferStationChoice() {
    isAskingForStation = true;
    if (settings::Confirm(nullptr, kNoStationQuestion, MB_ICONINFORMATION)) ShowStationOptions();
    isAskingForStation = false;
}

void RecordUpdate() {
    const std::string now = win::GeneralDateNow();
    settings::WriteSetting(settings::kLastUpdated, now);
    UpdateTrayTip(now);
    BuildAlertsMenu();
}

// Deliberately, the sound depends on the flashing option and is read from the program folder, not
// from its copy in the data folder.
void PlayChosenSound() {
    using namespace settings;
    if (!ReadFlag(kFlashTrayIcon)) return;
    const std::string name = ReadSetting(kTrayAlertSound);
    if (name.empty() || name == kNoSound) return;
    const std::string path = SoundPath(name);
    if (win::FileExists(path)) win::PlayAlertSound(path, win::kPlayOnce);
}

void AnnounceNewAlerts() {
    ShowNewAlertImage();
    settings::State().newAlertIconShown = true;
    if (settings::ReadFlag(settings::kDisplayTrayAlert)) ShowTrayBalloon(kNewAlertsMessage);
    PlayChosenSound();
}

std::string FailureMessage() {
    // The line about "Skyvane Live" deliberately names another product.
    return win::Join({"Skyvane Alerts was not able to retrieve the severe alerts.", "",
                      "Please verify the following:", "", "1) You're connected to the Internet.",
                      "", "2) Your software (e.g. firewall software, security software) is not",
                      "     blocking Internet access to Skyvane Live.", "",
                      "3) Your computer and/or network is not preventing you from",
                      "     viewing " + settings::WeatherHost() + "."},
                     "\r\n");
}

void EndCycle(const alerts::CycleOutcome& outcome, bool interactive, void (*whenEnded)()) {
    if (!outcome.failed) {
        RecordUpdate();
        if (outcome.newAlerts > 0) AnnounceNewAlerts();
    }
    settings::State().lastCycleEnd = GetTickCount64();
    if (outcome.failed && interactive)
        settings::ShowMessage(nullptr, FailureMessage(), MB_ICONINFORMATION);
    settings::State().minuteCounter = 0;
    if (whenEnded) whenEnded();
}

// Takes one step of the newest cycle, but not while the menu is open: its loop takes all input, so
// that no message box may open and no item may change.
void CALLBACK ContinueCycle(HWND, UINT, UINT_PTR, DWORD) {
    static bool isStepping = false;
    if (isStepping || IsTrayMenuOpen() || cycles.empty()) return;
    isStepping = true;
    RunningCycle* const newest = cycles.back().get();
    const auto outcome = newest->cycle.Continue();
    isStepping = false;
    if (!outcome) return;
    // Continue may have handled messages, and a newer cycle may have started meanwhile.
    const auto place = std::ranges::find(cycles, newest, &std::unique_ptr<RunningCycle>::get);
    const auto ended = std::move(*place);
    cycles.erase(place);
    if (cycles.empty()) KillTimer(nullptr, std::exchange(stepTimer, 0));
    EndCycle(*outcome, ended->interactive, ended->whenEnded);
}

void StartCycle(bool interactive, void (*whenEnded)()) {
    constexpr UINT kStepMilliseconds = 15;
    cycles.emplace_back(new RunningCycle{{}, interactive, whenEnded});
    if (!stepTimer) stepTimer = SetTimer(nullptr, 0, kStepMilliseconds, ContinueCycle);
}

// Starts the retrieval that was requested while the station file could not be read.
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
        constexpr UINT kRetryMilliseconds = 1000;
        if (!unreadTimer) unreadTimer = SetTimer(nullptr, 0, kRetryMilliseconds, RetrieveWhenRead);
        return EndCycle({true, 0}, interactive, whenEnded);
    }
    if (settings::State().stationCount == 0) {
        if (isAskingForStation) {  // one question at a time
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
    constexpr DWORD kLongestSleep = 1000;
    while (!cycles.empty()) win::PumpOrWait(kLongestSleep);
}

}  // namespace tray
