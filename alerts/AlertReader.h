#pragma once
#include <cstdint>
#include <string>

// One station's feed of active alerts.
namespace alerts {

// What FetchStationAlerts gives for a failed download.
inline constexpr std::int16_t kDownloadFailed = -1;

// Fetches the station's feed and parses it; the number of new alerts, or kDownloadFailed. Lets
// messages run.
std::int16_t FetchStationAlerts(const std::string& stationCode);

// Holds the alerts of a feed document that pass the user's filter for the Alerts section, behind
// those already there, appends unseen identifiers to the process-wide list, and returns their
// number. A document that does not load stores nothing and gives 0. Lets messages run.
std::int16_t ParseAlerts(const std::string& dataFile, const std::string& stationCode);

}  // namespace alerts
