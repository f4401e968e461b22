#pragma once
#include <optional>
#include <string_view>

// The VTEC code (Valid Time Event Code), which identifies an event in all its messages, such as
// "/O.CON.KTOP.TO.W.0045.000000T0000Z-260715T2100Z/".
namespace nws {

struct Vtec {
    char product = 0;              // 'T': a test
    std::string_view action;       // "NEW", "CON", ...: three letters
    std::string_view event;        // "KTOP.TO.W.0045": office, phenomenon, significance, number
    std::optional<int> firstYear;  // the earlier year of begin and end, as far as the code has them
};

// Parses a code; the texts of the result point into `text`. Returns nullopt for any other text.
std::optional<Vtec> ParseVtec(std::string_view text);

// Whether the action ends the event: cancelled, upgraded to another event, or expired.
bool EndsEvent(const Vtec& vtec);

// Returns the year in which the event began, as far as one message shows it. Event numbers restart
// each year. `firstSent` is the year of the first known message (0: unknown): messages of an event
// that continues over New Year no longer state the year in which it began.
int FirstYear(const Vtec& vtec, int firstSent);

}  // namespace nws
