#pragma once
#include <optional>
#include <string>
#include <string_view>

// The code by which the Weather Service marks an event through all its messages, such as
// "/O.CON.KTOP.TO.W.0045.000000T0000Z-260715T2100Z/".
namespace downloader {

struct Vtec {
    char product = 0;              // 'T': a test
    std::string_view action;       // "NEW", "CON", ..., three letters
    std::string_view event;        // "KTOP.TO.W.0045": office, phenomenon, significance, number
    std::optional<int> firstYear;  // the earlier one of begin and end, where the code tells one
};

// Reads the code; its texts point into `text`. Nothing for any other text.
std::optional<Vtec> ParseVtec(std::string_view text);

// Whether the action ends the event: cancelled, upgraded to another one, expired.
bool EndsEvent(const Vtec& vtec);

// The event's identifier, "KTOP.TO.W.0045.26". Its number is given anew each year, so the year of
// its beginning belongs to it. Later messages no longer tell that; `firstSent`, the year of the
// first known message (0: unknown), makes an event that lasts over New Year keep its identifier.
std::string EventId(const Vtec& vtec, int firstSent);

}  // namespace downloader
