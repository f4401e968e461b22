#pragma once
#include <string>
#include <string_view>

#include "settings/KeyValues.h"

// The text of an INI file. The program edits it as text, because the profile functions rewrite the
// file for every value.
namespace settings {

// The number of characters of a value that an INI file holds at most.
inline constexpr std::size_t kIniValueLimit = 749;

// Returns the keys and values of the first section of this name, ignoring case, in file order. Keys
// are in lower case; values are as the profile functions return them: without white space and one
// pair of quotes around them, cut to kIniValueLimit characters.
KeyValues ReadIniSection(std::string_view fileText, std::string_view section);

// Returns the file text with the values set: in place if the key exists, else after the section's
// last line, or in a new section at the end. Keys are written in upper case, values by
// IniSafeValue; all other bytes stay unchanged.
std::string MergeIniSection(std::string_view fileText, std::string_view section,
                            const KeyValues& values);

// Returns the value that is read back after `value` was stored: line breaks become spaces, and the
// text ends after kIniValueLimit characters.
std::string CutIniValue(std::string_view value);

// Returns CutIniValue as written in a line: in quotes if it has white space or quotes at its ends.
std::string IniSafeValue(std::string_view value);

}  // namespace settings
