#pragma once
#include <string>
#include <string_view>

// What is made of the version file.
namespace alerts {

// Whether the file's text, blanks at its ends aside, is too long to be a version: an error page.
bool IsVersionTooLong(std::string_view fileText);

// The offered version: the text without blanks and line break at its ends.
std::string OfferedVersion(std::string_view fileText);

// Whether the offered version is newer. Each version's digits are read as one 16-bit number, so
// that 1.2.10 (1210) beats 1.3.0 (130); a text that is no such number counts as 0. The rule is
// deliberate.
bool IsNewerVersion(std::string_view offered, std::string_view running);

}  // namespace alerts
