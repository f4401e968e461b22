#include "alerts/RetrievalCycle.h"

#include <algorithm>
#include <iterator>

#include "alerts/AlertFeedRules.h"
#include "settings/Hosts.h"
#include "settings/IniOpenSave.h"
#include "settings/ProgramState.h"
#include "stations/StationLine.h"
#include "stations/StationList.h"
#include "win/CodePage.h"

namespace alerts {
namespace {

std::string AlertsAddress(const std::string& stationCode) {
    return settings::FeedHost() + settings::kFeedRequest + "&requesttype=6&ZipCode=" + stationCode;
}

}  // namespace

RetrievalCycle::RetrievalCycle() {
    settings::DeleteSettingSection(settings::kAlerts);
}

std::optional<CycleOutcome> RetrievalCycle::Continue() {
    if (!download_ && !StartNextStation()) return End(false);
    if (!download_->IsDone()) return std::nullopt;
    if (!download_->Succeeded()) return End(true);
    if (!reader_) reader_.emplace(download_->DataFile(), code_);
    if (!reader_->ReadSome()) return std::nullopt;
    std::ranges::copy(reader_->Identifiers(), std::back_inserter(identifiers_));
    reader_.reset();
    download_.reset();
    done_.append(",").append(code_);
    if (StartNextStation()) return std::nullopt;
    return End(false);
}

// Starts the download of the first station whose code this cycle has not fetched yet; false when
// there is none. The list may have lost stations since the last step, so an index could skip one.
bool RetrievalCycle::StartNextStation() {
    for (std::size_t i = 0; i < settings::State().stationCount; ++i) {
        const std::string line = stations::StationAt(i);
        if (!stations::HasHiddenFields(line)) continue;
        code_ = stations::HiddenField(line, stations::kCode);
        if (IsDone(done_, code_)) continue;
        download_.emplace(AlertsAddress(code_), "SVL");
        return true;
    }
    return false;
}

// The list of seen alerts changes only here: the alerts of a cycle that fails are not announced, so
// they must not count as seen.
CycleOutcome RetrievalCycle::End(bool failed) {
    download_.reset();
    settings::StoreHeldSettings();
    if (failed) return {true, 0};
    std::string& seen = settings::State().oldAlerts;
    seen = TrimSeen(seen);
    const std::int16_t newAlerts = AddUnseen(seen, identifiers_, win::BrokenBar());
    settings::WriteSetting(settings::kOldAlerts,
                           FitSeen(seen, settings::LongestValue(), win::BrokenBar()));
    return {false, newAlerts};
}

}  // namespace alerts
