#include "alerts/RetrievalCycle.h"

#include <windows.h>

#include <algorithm>
#include <iterator>

#include "alerts/PlaceAnswers.h"
#include "alerts/SeenAlerts.h"
#include "settings/Addresses.h"
#include "settings/IniOpenSave.h"
#include "settings/ProgramState.h"
#include "stations/StationLine.h"
#include "stations/StationList.h"
#include "win/Dates.h"

namespace alerts {

RetrievalCycle::RetrievalCycle() {
    settings::DeleteSettingSection(settings::kAlerts);
}

std::optional<CycleOutcome> RetrievalCycle::Continue() {
    if (!download_ && !StartNextStation()) return End(false);
    if (!download_->IsDone()) return std::nullopt;
    if (!download_->Succeeded()) return End(true);
    if (!reader_) reader_.emplace(download_->DataFile(), code_);
    if (!reader_->ReadSome()) return std::nullopt;
    RecordAnswer();
    std::ranges::copy(reader_->Identifiers(), std::back_inserter(identifiers_));
    reader_.reset();
    download_.reset();
    fetched_.append(",").append(code_);
    if (StartNextStation()) return std::nullopt;
    return End(false);
}

bool RetrievalCycle::HasFetched(const std::string& code) const {
    return (fetched_ + ",").find("," + code + ",") != std::string::npos;
}

// Starts the download for the first station whose code this cycle has not fetched yet; returns
// false if there is none. The search starts over each time, because the list may have lost stations
// since the last step.
bool RetrievalCycle::StartNextStation() {
    for (std::size_t i = 0; i < settings::State().stationCount; ++i) {
        const auto code = stations::StationCode(stations::StationAt(i));
        if (!code || HasFetched(*code)) continue;
        code_ = *code;
        feed_ = settings::FeedHost();
        date_ = win::GeneralDateNow();
        tick_ = GetTickCount64();
        download_.emplace(settings::AlertsRequest(code_), kAlertsPrefix);
        return true;
    }
    return false;
}

void RetrievalCycle::RecordAnswer() const {
    PlaceAnswer answer = reader_->Answer();
    if (!answer.isKnown) return RecordFailure(code_, feed_, tick_);
    answer.retrieved = date_;
    answer.tick = tick_;
    alerts::RecordAnswer(code_, feed_, std::move(answer));
}

// A failed download ends the cycle: the alerts of the stations after it are as unknown as its own.
void RetrievalCycle::RecordFailures() const {
    RecordFailure(code_, feed_, tick_);
    for (const std::string& line : settings::State().stations) {
        const auto code = stations::StationCode(line);
        if (code && !HasFetched(*code)) RecordFailure(*code, feed_, tick_);
    }
}

// The list of seen alerts changes only here: a failed cycle announces no alerts, so they must not
// count as seen.
CycleOutcome RetrievalCycle::End(bool failed) {
    download_.reset();
    settings::StoreHeldSettings();
    if (failed) {
        RecordFailures();
        return {true, 0};
    }
    std::string& seen = settings::State().oldAlerts;
    seen = TrimSeen(seen);
    const std::int16_t newAlerts = AddUnseen(seen, identifiers_);
    settings::WriteSetting(settings::kOldAlerts, FitSeen(seen, settings::LongestValue()));
    return {false, newAlerts};
}

}  // namespace alerts
