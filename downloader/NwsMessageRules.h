#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The messages in an answer of the Weather Service about alerts, and what each says of its event.
namespace downloader {

// One message, its texts as they came; empty where the answer has none.
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

// All messages in the answer's order. Nothing when it is not a whole list of alerts.
std::optional<std::vector<Message>> ReadMessages(std::string_view json);

// Whether the message is meant for the public: neither a test nor an exercise nor a draft.
bool IsActual(const Message& message);

// Whether the event still lasts at `now` (seconds since 1970) and was neither cancelled nor
// replaced by another one. The end of the event counts, that of the message only where there is no
// other.
bool IsInForce(const Message& message, std::int64_t now);

// The identifier that all messages of the event share, 18 characters at most.
std::string EventId(const Message& message);

// The higher the worse: severity, then urgency.
int Gravity(const Message& message);

}  // namespace downloader
