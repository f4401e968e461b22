#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "alerts/AlertReader.h"
#include "alerts/modDownloader.h"

namespace alerts {

struct CycleOutcome {
    bool failed = false;         // a download failed, and the cycle ended there
    std::int16_t newAlerts = 0;  // alerts not seen before; 0 for a failed cycle
};

// Rebuilds the stored alerts from the feeds of all stations, each station code once. It never
// waits: its owner calls Continue repeatedly, from any message loop, so that neither a dialog nor
// another cycle can block it.
class RetrievalCycle {
  public:
    // Clears the stored alerts.
    RetrievalCycle();

    // Takes one short step. Returns nullopt until the cycle has ended; must not be called after
    // that. The station list may change between two steps.
    std::optional<CycleOutcome> Continue();

  private:
    bool HasFetched(const std::string& code) const;
    bool StartNextStation();
    void RecordAnswer() const;
    void RecordFailures() const;
    CycleOutcome End(bool failed);

    std::string fetched_;  // the codes fetched so far, each after a comma
    std::string code_;
    // Of the last download: the address of the feed, and when it began.
    std::string feed_;
    std::string date_;
    std::uint64_t tick_ = 0;
    std::optional<Download> download_;
    std::optional<AlertReader> reader_;
    std::vector<std::string> identifiers_;  // of all alerts that passed the filter
};

}  // namespace alerts
