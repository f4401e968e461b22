#pragma once
#include <cstdint>
#include <optional>
#include <string>

namespace nws {

// Builds the alert document from the Weather Service's answer for a place, most severe alert first.
// Omitted are tests, events that have ended at `now` (seconds since 1970), and superseded messages;
// an event keeps one short identifier through all its messages. Returns nullopt when the answer is
// not a complete list of alerts: an error page must not be read as "no alerts".
std::optional<std::string> BuildAlertDocument(std::string json, std::int64_t now);

}  // namespace nws
