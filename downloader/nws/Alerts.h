#pragma once
#include <cstdint>
#include <optional>
#include <string>

#include "downloader/feed/AlertMemory.h"
#include "downloader/feed/Area.h"
#include "downloader/nws/Zones.h"

namespace nws {

// What decides whether an alert concerns a place.
struct AlertPlace {
    feed::Position centre;
    double reach = 0;  // kilometres
    ZoneIds zones;     // of the centre
};

// Builds the alert document for a place from the Weather Service's answer for zones near it, most
// severe alert first. Omitted are alerts for other places, tests, events that have ended at `now`
// (the service's time, in seconds since 1970), and superseded messages. An event keeps its
// identifier through all its messages, as far as the memory knows them; it learns from the answer.
// Returns nullopt when the answer is not a complete list of alerts: an error page must not be read
// as "no alerts".
std::optional<std::string> BuildAlertDocument(std::string json, const AlertPlace& place,
                                              feed::AlertMemory& memory, std::int64_t now);

}  // namespace nws
