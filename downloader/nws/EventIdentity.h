#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "downloader/feed/AlertMemory.h"
#include "downloader/nws/Messages.h"

// Which messages belong to one event, and the identifiers of events.
namespace nws {

// Returns the event of each message, in the order of the messages: found by its VTEC code, by the
// earlier messages that it names, or by its text, and remembered with the highest tier that any
// message of it has had. Messages of one event have equal identities. `now` is the service's time
// in seconds since 1970.
std::vector<feed::KnownEvent> IdentifyEvents(const std::vector<Message>& messages,
                                             feed::AlertMemory& memory, std::int64_t now);

// Returns the identifier of the event's alert. Each tier has its own, so that a raised warning is a
// new alert; a lowered warning keeps the identifier of its highest tier.
std::string AlertIdentifier(const feed::KnownEvent& event);

}  // namespace nws
