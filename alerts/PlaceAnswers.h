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
    std::vector<Alert> alerts;  // those that passed the word filter or are exempt from it
    bool isFiltered = false;    // whether there was a word filter
    bool isKnown = false;       // false until a request has succeeded
    bool lastFailed = false;    // the last request failed; the alerts are those of the one before
    std::string retrieved;      // when the alerts were requested, as the user writes dates
    std::uint64_t tick = 0;     // the same, in milliseconds since the system started
};

// Whether an entry with this title is a notice: a place's alerts are unknown or incomplete.
bool IsNotice(std::string_view title);

// Whether an entry with this title is kept whatever its words: a notice, or an alert whose text
// could not be read.
bool IsExemptFromFilter(std::string_view title);

// Keeps the answer of the feed at this address for a place, unless there is one to a later request.
// Requests may finish out of order.
void RecordAnswer(const std::string& code, std::string_view feed, PlaceAnswer answer);

// Records that the request that began at `tick` failed; the last answer's alerts stay.
void RecordFailure(const std::string& code, std::string_view feed, std::uint64_t tick);

// Returns the last answer of the feed at this address; one that is not known if it has none.
PlaceAnswer FindAnswer(const std::string& code, std::string_view feed);

}  // namespace alerts
