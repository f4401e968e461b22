#pragma once
#include <string>
#include <string_view>

// Conversions between the process's code page and UTF-16, which COM, WinHTTP and dates use.
namespace win {

// Converts text of the process's code page to UTF-16; invalid bytes become U+FFFD.
std::wstring ToWide(std::string_view text);

// Converts UTF-16 to the process's code page; characters that it lacks become '?'.
std::string FromWide(std::wstring_view text);

// Converts UTF-16 to UTF-8, for files that are UTF-8 whatever the code page.
std::string ToUtf8(std::wstring_view text);

// Returns the text in lower case, by the rules of Unicode.
std::string ToLower(std::string_view text);

}  // namespace win
