#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "downloader/feed/Area.h"
#include "downloader/nws/Vtec.h"

// The messages in the Weather Service's answer about alerts, and what each states about its event.
namespace nws {

// One message with its texts unchanged; those missing from the answer are empty. They point into
// the answer.
struct Message {
    std::string_view identifier;
    std::string_view status;
    std::string_view type;
    std::string_view event;
    std::string_view senderName;
    std::string_view headline;
    std::string_view area;
    std::string_view description;
    std::string_view instruction;
    std::string_view severity;
    std::string_view urgency;
    std::string_view certainty;
    std::string_view response;
    std::string_view sent;
    std::string_view expires;
    std::string_view ends;
    std::vector<std::string_view> threats;  // the tags by which the service raises a warning
    std::vector<std::string_view> zones;    // identifiers such as "KSZ009"
    std::optional<Vtec> vtec;  // of several codes the first that begins or continues an event
    std::vector<feed::Polygon> polygons;     // none when the zones alone are the area
    std::vector<std::string_view> replaced;  // identifiers of earlier messages
    std::string_view firstReplaced;          // the earliest of them, and when it was sent
    std::string_view firstSent;
    bool hasProperties = false;
};

// Reads all messages in document order. The answer is parsed in place: it is changed, and must
// outlive the messages. Returns nullopt when it is not a complete list of alerts.
std::optional<std::vector<Message>> ReadMessages(std::string& json);

// Whether the message is meant for the public: not a test, an exercise or a draft.
bool IsActual(const Message& message);

// Whether the message ends its event: cancelled, or replaced by another event.
bool IsEnd(const Message& message);

// Whether the event is still in progress at `now` (seconds since 1970) and has not been ended. The
// end of the event counts; the expiry of the message only counts when the event has no end.
bool IsInForce(const Message& message, std::int64_t now);

// Returns the year in which the first known message of the event was sent; 0 when unknown.
int FirstSentYear(const Message& message);

}  // namespace nws
