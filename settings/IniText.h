#pragma once
#include <string>
#include <string_view>

#include "settings/KeyValues.h"

// The private profile format as text. The program edits its INI file as text and replaces it whole,
// and reads a section with thousands of values at once.
namespace settings {

// The longest value, in characters, that an INI file holds.
inline constexpr std::size_t kIniValueLimit = 749;

// The key and value lines of the section's first occurrence, in file order: keys in lower case,
// values as the profile functions give them (blanks and one pair of quotes around them removed, cut
// to kIniValueLimit characters). The section's name ignores case.
KeyValues ReadIniSection(std::string_view fileText, std::string_view section);

// The file text with the section's keys set: in place if the key exists, after the section's last
// line if not, in a new section at the end if there is no such section. Keys are written in upper
// case, values by IniSafeValue; everything else stays as it is, byte for byte.
std::string MergeIniSection(std::string_view fileText, std::string_view section,
                            const KeyValues& values);

// The value that is read back after `value` was stored: line breaks, which would start lines of
// their own, become blanks, and the text ends after kIniValueLimit characters.
std::string CutIniValue(std::string_view value);

// CutIniValue as an INI line holds it: quoted if it has blanks or quotes at its ends.
std::string IniSafeValue(std::string_view value);

}  // namespace settings
