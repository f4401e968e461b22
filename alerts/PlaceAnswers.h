#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The newest answer that each place's feed request returned in this session. It is kept apart from
// the settings store, which cuts long texts and may hold alerts that ended long ago.
namespace alerts {

struct Alert {
    std::string identifier;
    std::string title;
    std::string body;
};

struct PlaceAnswer {
    std::vector<Alert> alerts;  // those that passed the word filter
    bool isFiltered = false;    // whether there was a word filter
    bool isKnown = false;       // false until a request has succeeded
    bool lastFailed = false;    // the last request failed; the alerts are those of the one before
    std::string retrieved;      // when the alerts were retrieved, as the user writes dates
    std::uint64_t tick = 0;     // the same, in milliseconds since the system started
};

// Keeps the answer of a place to the feed at this address.
void RecordAnswer(const std::string& code, std::string_view feed, PlaceAnswer answer);

// Records that the request for a place failed; the alerts of its last answer stay.
void RecordFailure(const std::string& code, std::string_view feed);

// Returns the last answer of the feed at this address; one that is not known if it has none.
PlaceAnswer FindAnswer(const std::string& code, std::string_view feed);

}  // namespace alerts
