#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "alerts/AlertReader.h"
#include "alerts/modDownloader.h"

namespace alerts {

struct CycleOutcome {
    bool failed = false;         // a download failed, which ended the cycle
    std::int16_t newAlerts = 0;  // alerts not seen before; always 0 for a failed cycle
};

// Rebuilds the stored alerts from the feeds of all stations, each station code once. It never
// waits: its owner calls Continue now and then, from whichever message loop runs, so that a dialog
// or another cycle that began meanwhile cannot hold it up.
class RetrievalCycle {
  public:
    // Clears the stored alerts.
    RetrievalCycle();

    // Takes one short step; the outcome once the cycle has ended. It must not be called again then.
    // The station list may change between two steps.
    std::optional<CycleOutcome> Continue();

  private:
    bool StartNextStation();
    CycleOutcome End(bool failed);

    std::string done_;  // the codes fetched so far, each after a comma
    std::string code_;
    std::optional<Download> download_;
    std::optional<AlertReader> reader_;
    std::vector<std::string> identifiers_;  // of all alerts that passed the filter
};

}  // namespace alerts
