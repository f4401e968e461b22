#pragma once
#include <string>
#include <string_view>

// The only conversions between the process's code page and UTF-16, for COM, WinHTTP and dates.
namespace win {

// Text of the process's code page as UTF-16; bytes that are no character become U+FFFD.
std::wstring ToWide(std::string_view text);

// UTF-16 as text of the process's code page; characters that it lacks become '?'.
std::string FromWide(std::wstring_view text);

// UTF-16 as UTF-8, for files that are UTF-8 whatever the code page.
std::string ToUtf8(std::wstring_view text);

// The text in lower case by the rules of Unicode.
std::string ToLower(std::string_view text);

}  // namespace win
