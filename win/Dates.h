#pragma once
#include <string>
#include <string_view>

// Dates as the user's regional settings write them.
namespace win {

// The present date and time: short date, blank, time.
std::string GeneralDateNow();

// Today's short date.
std::string ShortDateToday();

// The short date of a text that begins with a date in the user's way; empty when it is none. May be
// empty for another day than today.
std::string ShortDateIfToday(std::string_view text);

}  // namespace win
