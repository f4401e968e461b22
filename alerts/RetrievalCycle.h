#pragma once
#include <cstdint>

namespace alerts {

struct CycleOutcome {
    bool failed = false;         // a download failed, which ended the cycle
    std::int16_t newAlerts = 0;  // alerts not seen before
};

// Rebuilds the stored alerts from the feeds of all stations, each station code once, and saves the
// list of seen identifiers when all went well. Lets messages run, so the station list may change
// meanwhile.
CycleOutcome RetrieveStationAlerts();

}  // namespace alerts
