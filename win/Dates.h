#pragma once
#include <string>
#include <string_view>

// Dates in the format of the user's regional settings.
namespace win {

// Returns the current short date and time, with a space between them.
std::string GeneralDateNow();

// Returns today's short date.
std::string ShortDateToday();

// Returns the short date of a text that starts with a date; empty if it does not. May also be empty
// for a date other than today.
std::string ShortDateIfToday(std::string_view text);

}  // namespace win
