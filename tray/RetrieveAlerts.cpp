#include "tray/RetrieveAlerts.h"

#include "alerts/AlertFeedRules.h"
#include "alerts/RetrievalCycle.h"
#include "settings/Hosts.h"
#include "settings/IniOpenSave.h"
#include "settings/ProgramState.h"
#include "tray/TrayCommands.h"
#include "tray/modTrayIcon.h"
#include "tray/modTrayMenu.h"
#include "win/Dates.h"
#include "win/Files.h"
#include "win/Messages.h"
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

// Asks once: a cycle that the clock starts while the question stands must not pile up another.
void OfferStationChoice() {
    static bool asking = false;
    if (asking) return;
    asking = true;
    if (win::Ask(nullptr, kNoStationQuestion, MB_ICONINFORMATION)) {
        settings::WriteSetting(settings::kLastOption, settings::kStationsPage);
        ShowOptions();
    }
    asking = false;
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

}  // namespace

void RetrieveAlerts(bool interactive) {
    settings::ProgramState& state = settings::State();
    if (state.stationCount == 0) OfferStationChoice();
    alerts::CycleOutcome outcome;
    if (state.stationCount > 0) outcome = alerts::RetrieveStationAlerts();
    if (!outcome.failed) {
        RecordUpdate();
        if (outcome.newAlerts > 0) AnnounceNewAlerts();
    } else if (interactive) {
        win::Tell(nullptr, alerts::FailureMessage(settings::WeatherHost()), MB_ICONINFORMATION);
    }
    state.minuteCounter = 0;
}

}  // namespace tray
