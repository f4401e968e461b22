#pragma once
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// The private profile format as text, for the two places where one value at a time would read or
// rewrite the whole file thousands of times: storing and listing alerts.
namespace settings {

using KeyValues = std::vector<std::pair<std::string, std::string>>;

// The longest value, in bytes, that a reader gets from an INI file.
inline constexpr std::size_t kIniValueLimit = 749;

// The key and value lines of the section's first occurrence, in file order: keys in lower case,
// values as the profile functions give them (blanks and one pair of quotes around them removed, cut
// to kIniValueLimit bytes). The section's name ignores case.
KeyValues ReadIniSection(std::string_view fileText, std::string_view section);

// The file text with the section's keys set: in place where the key stands, behind the section's
// last line where it does not, in a new section at the end where there is none. Keys are written in
// upper case; everything else stays as it is, byte for byte.
std::string MergeIniSection(std::string_view fileText, std::string_view section,
                            const KeyValues& values);

// A value as an INI line can hold it, so that reading gives the same text: line breaks, which would
// begin lines of their own, become blanks, and a value with blanks or quotes at its ends is quoted.
std::string IniSafeValue(std::string_view value);

}  // namespace settings
