#pragma once
#include <string>
#include <string_view>

// The program's texts are UTF-8. These functions convert them to UTF-16, which COM and the W
// functions of Windows use, and to the code page of the process, which the A functions use. The
// manifest makes that code page UTF-8 too; versions of Windows before 10 1903 ignore this.
namespace win {

// Converts to UTF-16. A text that is not well-formed UTF-8 is read in the process's code page;
// bytes that are invalid there too become U+FFFD.
std::wstring ToWide(std::string_view text);

// Converts UTF-16 to UTF-8; half a surrogate pair becomes U+FFFD.
std::string FromWide(std::wstring_view text);

// Converts to the process's code page; characters that it lacks become '?'.
std::string ToAnsi(std::string_view text);

// Converts from the process's code page.
std::string FromAnsi(std::string_view text);

// Converts the path of an existing file to the process's code page, as the short path if that lacks
// a character of the long one.
std::string ToAnsiPath(const std::string& path);

// Returns the text in lower case, by the rules of Unicode.
std::string ToLower(std::string_view text);

}  // namespace win
