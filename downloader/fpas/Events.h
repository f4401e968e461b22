#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "downloader/feed/AlertMemory.h"
#include "downloader/fpas/Alert.h"

// Which alerts are about one event, and the identifiers of events.
namespace fpas {

// The blocks of an alert that are shown, all in one language.
struct Choice {
    std::size_t alert = 0;  // index in the list of alerts
    int languageRank = 0;   // by LanguageRank
    std::vector<const Info*> blocks;
    std::string identity;  // of the event, by IdentifyEvents
};

// Finds the event of each choice, and keeps one choice for an event: of alerts that differ only in
// language the one that suits the user best, else the newest. Two alerts for different areas, or
// with different events or beginnings, stay two events although they update the same one. Null
// alerts are ignored; the others are remembered, also those that are no longer shown. `now` is the
// server's time in seconds since 1970.
void IdentifyEvents(const std::vector<const Alert*>& alerts, std::vector<Choice>& choices,
                    feed::AlertMemory& memory, std::int64_t now);

}  // namespace fpas
