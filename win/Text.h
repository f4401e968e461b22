#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Text as the rules see it: std::string in the process's code page. Characters are counted by code
// point where the text is well-formed UTF-8 and by byte where it is not (an older Windows, whose
// code page is a single-byte one).
namespace win {

// Whether all of the text is well-formed UTF-8.
bool IsUtf8(std::string_view text);

// The number of characters.
std::size_t CountChars(std::string_view text);

// The first `count` characters, or all when there are fewer.
std::string_view FirstChars(std::string_view text, std::size_t count);

// What is left after the first `count` characters; empty when there are no more.
std::string_view WithoutFirstChars(std::string_view text, std::size_t count);

// As many whole characters from the start as fit into `bytes` bytes.
std::string_view FitBytes(std::string_view text, std::size_t bytes);

// The text without blanks (only U+0020) at both ends.
std::string_view TrimBlanks(std::string_view text);

// Every `what` replaced by `with`, left to right; `what` must not be empty.
std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view with);

// The pieces between the separators; an empty text gives no piece, as a split of nothing.
std::vector<std::string> Split(std::string_view text, std::string_view separator);

// The pieces with the separator between them.
std::string Join(const std::vector<std::string>& pieces, std::string_view separator);

// Whether the text reads as a number from end to end: blanks around, a sign, digits with at most
// one point.
bool IsNumeric(std::string_view text);

// The number that the text begins with (blanks and line feeds before it are skipped, digits may
// hold one decimal point), 0 when it begins with none; infinity when there is no end of digits.
double LeadingNumber(std::string_view text);

// LeadingNumber as a 16-bit whole number; 0 when it does not fit.
std::int16_t LeadingInt16(std::string_view text);

// The sum of two 16-bit numbers; the first one when the sum does not fit.
std::int16_t AddInt16(std::int16_t number, std::int16_t more);

// Removes the first line, with its line feed, from the front of the text and returns it without the
// line feed.
std::string_view TakeLine(std::string_view& text);

// Returns the text with every control character replaced by a space.
std::string ReplaceControls(std::string text);

// A whole number in decimal.
std::string Decimal(long long number);

// Equal but for the case of ASCII letters.
bool EqualIgnoringCase(std::string_view left, std::string_view right);

// ASCII letters in lower (upper) case, everything else as it is.
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
