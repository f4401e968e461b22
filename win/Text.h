#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Text in UTF-8. A character is a code point if the text is well-formed, else a byte: files of
// other programs may have a single-byte code page.
namespace win {

// Whether the whole text is well-formed UTF-8.
bool IsUtf8(std::string_view text);

// Returns the number of characters.
std::size_t CountChars(std::string_view text);

// Returns the first `count` characters, or all if there are fewer.
std::string_view FirstChars(std::string_view text, std::size_t count);

// Returns the text after the first `count` characters.
std::string_view WithoutFirstChars(std::string_view text, std::size_t count);

// Returns the code point of a UTF-8 character of one to four bytes, which are not validated.
char32_t CodePointOf(std::string_view character);

// Returns the longest start of the text that consists of whole characters and fits into `bytes`.
std::string_view FitBytes(std::string_view text, std::size_t bytes);

// Returns the text without the given characters at its ends.
std::string_view Trim(std::string_view text, std::string_view characters = " ");

// Returns the text with every `what`, which must not be empty, replaced by `with`.
std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view with);

// Returns the pieces between the separators; none for an empty text.
std::vector<std::string> Split(std::string_view text, std::string_view separator);

// Returns the pieces with the separator between them.
std::string Join(const std::vector<std::string>& pieces, std::string_view separator);

// Whether the whole text is a number: a sign and digits with at most one decimal point, with any
// spaces around them.
bool IsNumeric(std::string_view text);

// Returns the number from 0 to `most` that the text consists of, 1 to 18 digits; nullopt for any
// other text.
std::optional<std::int64_t> ParseNumber(std::string_view text, std::int64_t most);

// Returns the number at the start of the text, after any white space; it may have a decimal point.
// Returns 0 if there is none, infinity if it has too many digits.
double LeadingNumber(std::string_view text);

// Returns LeadingNumber rounded to a 16-bit integer; 0 if it does not fit.
std::int16_t LeadingInt16(std::string_view text);

// Returns the sum of two 16-bit numbers; the first one if the sum does not fit.
std::int16_t AddInt16(std::int16_t number, std::int16_t more);

// Removes the first line, with its line feed, from the front of the text and returns it without the
// line feed.
std::string_view TakeLine(std::string_view& text);

// Returns the text with every control character replaced by a space.
std::string ReplaceControls(std::string text);

// Returns an integer as decimal digits.
std::string Decimal(long long number);

// Whether the texts are equal, ignoring the case of ASCII letters.
bool EqualIgnoringCase(std::string_view left, std::string_view right);

// Returns the text with its ASCII letters in lower (upper) case.
std::string AsciiLower(std::string_view text);
std::string AsciiUpper(std::string_view text);

// Whether the character is an ASCII digit or letter.
constexpr bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
constexpr bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

}  // namespace win
