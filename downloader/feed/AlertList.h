#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// The alerts of an answer: each event once, in the order in which the program lists them.
namespace feed {

// A message that may represent its event.
struct RankedAlert {
    std::size_t message = 0;  // index in the source's own list
    std::string identity;     // of the event
    std::string title;
    std::int64_t sent = 0;  // seconds since 1970
    bool isInForce = true;
    int severityRank = 0;  // by SeverityRank
};

// Keeps only the newest message of each event, and only while the event is in force. When one
// message continues the event and another one sent at the same time ends it, each for part of the
// area, the event continues.
void KeepOnePerEvent(std::vector<RankedAlert>& alerts);

// Sorts the most severe alert first, the newest one first of several as severe. But an alert whose
// title is the end of another's ("Flood Warning", "Flash Flood Warning") precedes that one: the
// menu omits a caption that is part of an earlier caption, and in a caption the place follows the
// title.
void PutWorstFirst(std::vector<RankedAlert>& alerts);

// Returns the indexes of the numbers, the smallest number's first. Equal numbers keep their order.
std::vector<std::size_t> StableOrder(const std::vector<std::int64_t>& numbers);

// Returns the title, shortened to at most 30 characters, because a caption of the menu is cut at 40
// and the place follows the title.
std::string ShortTitle(std::string_view title);

}  // namespace feed
