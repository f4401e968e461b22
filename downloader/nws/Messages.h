#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// The messages in the Weather Service's answer about alerts, and what each states about its event.
namespace nws {

// One message with its texts unchanged; those missing from the answer are empty.
struct Message {
    std::string identifier;
    std::string status;
    std::string type;
    std::string event;
    std::string headline;
    std::string area;
    std::string description;
    std::string instruction;
    std::string severity;
    std::string urgency;
    std::string response;
    std::string sent;
    std::string expires;
    std::string ends;
    std::vector<std::string> vtec;
    std::vector<std::string> replaced;  // identifiers of earlier messages
    std::string firstReplaced;          // the earliest of them, and when it was sent
    std::string firstSent;
    bool hasProperties = false;
};

// Reads all messages in document order. Returns nullopt when the answer is not a complete list of
// alerts.
std::optional<std::vector<Message>> ReadMessages(std::string json);

// Whether the message is meant for the public: not a test, an exercise or a draft.
bool IsActual(const Message& message);

// Whether the event is still in progress at `now` (seconds since 1970) and has been neither
// cancelled nor replaced by another event. The end of the event counts; the expiry of the message
// only counts when the event has no end.
bool IsInForce(const Message& message, std::int64_t now);

// Returns the identifier that all messages of the event share, at most 18 characters.
std::string EventId(const Message& message);

// Ranks the message by severity, then urgency; higher is more severe.
int SeverityRank(const Message& message);

}  // namespace nws
