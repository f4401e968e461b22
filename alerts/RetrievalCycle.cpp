#include "alerts/RetrievalCycle.h"

#include "alerts/AlertFeed.h"
#include "alerts/AlertFeedRules.h"
#include "settings/IniOpenSave.h"
#include "settings/ProgramState.h"
#include "stations/StationLineRules.h"
#include "stations/StationList.h"
#include "win/TextRules.h"

namespace alerts {

CycleOutcome RetrieveStationAlerts() {
    settings::ProgramState& state = settings::State();
    settings::DeleteSettingSection(settings::kAlerts);
    state.oldAlerts = TrimSeen(state.oldAlerts);
    CycleOutcome outcome;
    std::string done;
    for (std::size_t i = 0; i < state.stationCount; ++i) {
        const std::string line = stations::StationAt(i);
        if (!stations::HasHiddenFields(line)) continue;
        const std::string code = stations::HiddenField(line, stations::kCode);
        if (IsDone(done, code)) continue;
        const std::int16_t newAlerts = FetchStationAlerts(code);
        outcome.failed = newAlerts < 0;
        if (outcome.failed) break;
        done.append(",").append(code);
        outcome.newAlerts = win::AddInt16(outcome.newAlerts, newAlerts);
    }
    settings::StoreHeldSettings();
    if (!outcome.failed) settings::WriteSetting(settings::kOldAlerts, state.oldAlerts);
    return outcome;
}

}  // namespace alerts
