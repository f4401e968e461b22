#include "win/Text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace win {
namespace {

bool IsContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// The length of the well-formed UTF-8 sequence at the start of the text; 0 if there is none.
std::size_t SequenceLength(std::string_view text) {
    const auto at = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = at(0);
    if (lead < 0x80) return 1;
    if (lead < 0xC2 || lead > 0xF4) return 0;
    const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (text.size() < length) return 0;
    for (std::size_t i = 1; i < length; ++i)
        if (!IsContinuation(text[i])) return 0;
    const unsigned char second = at(1);
    const bool overlong = (lead == 0xE0 && second < 0xA0) || (lead == 0xF0 && second < 0x90);
    const bool outside = (lead == 0xED && second > 0x9F) || (lead == 0xF4 && second > 0x8F);
    return overlong || outside ? 0 : length;
}

// The byte position after the first `count` characters.
std::size_t PositionAfter(std::string_view text, std::size_t count) {
    if (!IsUtf8(text)) return std::min(count, text.size());
    std::size_t position = 0;
    for (; count > 0 && position < text.size(); --count)
        position += SequenceLength(text.substr(position));
    return position;
}

}  // namespace

bool IsUtf8(std::string_view text) {
    while (!text.empty()) {
        // Most texts are ASCII: eight bytes at a time are enough for them.
        std::uint64_t bytes = 0;
        if (text.size() >= sizeof bytes) {
            std::memcpy(&bytes, text.data(), sizeof bytes);
            if ((bytes & 0x8080808080808080) == 0) {
                text.remove_prefix(sizeof bytes);
                continue;
            }
        }
        const std::size_t length = SequenceLength(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

std::size_t CountChars(std::string_view text) {
    if (!IsUtf8(text)) return text.size();
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char byte) { return !IsContinuation(byte); }));
}

std::string_view FirstChars(std::string_view text, std::size_t count) {
    return text.substr(0, PositionAfter(text, count));
}

std::string_view WithoutFirstChars(std::string_view text, std::size_t count) {
    return text.substr(PositionAfter(text, count));
}

char32_t CodePointOf(std::string_view character) {
    char32_t point = static_cast<unsigned char>(character[0]);
    if (character.size() > 1) point &= 0x7Fu >> character.size();
    for (const char byte : character.substr(1)) point = point << 6 | (byte & 0x3F);
    return point;
}

std::string_view FitBytes(std::string_view text, std::size_t bytes) {
    if (text.size() <= bytes) return text;
    std::size_t end = bytes;
    if (IsUtf8(text))
        while (end > 0 && IsContinuation(text[end])) --end;
    return text.substr(0, end);
}

std::string_view Trim(std::string_view text, std::string_view characters) {
    const std::size_t first = text.find_first_not_of(characters);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(characters) - first + 1);
}

std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view with) {
    std::string result;
    result.reserve(text.size() + with.size());
    for (std::size_t start = 0;;) {
        const std::size_t found = text.find(what, start);
        result.append(text.substr(start, found - start));
        if (found == std::string_view::npos) return result;
        result.append(with);
        start = found + what.size();
    }
}

std::vector<std::string> Split(std::string_view text, std::string_view separator) {
    std::vector<std::string> pieces;
    if (text.empty()) return pieces;
    for (std::size_t start = 0;;) {
        const std::size_t found = text.find(separator, start);
        pieces.emplace_back(text.substr(start, found - start));
        if (found == std::string_view::npos) return pieces;
        start = found + separator.size();
    }
}

std::string Join(const std::vector<std::string>& pieces, std::string_view separator) {
    std::string result;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (i > 0) result.append(separator);
        result.append(pieces[i]);
    }
    return result;
}

bool IsNumeric(std::string_view text) {
    text = Trim(text);
    if (!text.empty() && (text.front() == '+' || text.front() == '-')) text.remove_prefix(1);
    if (std::count(text.begin(), text.end(), '.') > 1) return false;
    return std::any_of(text.begin(), text.end(), IsDigit) &&
           std::all_of(text.begin(), text.end(), [](char c) { return IsDigit(c) || c == '.'; });
}

std::optional<std::int64_t> ParseNumber(std::string_view text, std::int64_t most) {
    constexpr std::size_t kMostDigits = 18;  // whose number always fits
    if (text.empty() || text.size() > kMostDigits) return std::nullopt;
    std::int64_t number = 0;
    for (const char digit : text) {
        if (!IsDigit(digit)) return std::nullopt;
        number = number * 10 + (digit - '0');
    }
    return number <= most ? std::optional(number) : std::nullopt;
}

double LeadingNumber(std::string_view text) {
    const std::size_t start = text.find_first_not_of(" \t\n\r");
    if (start == std::string_view::npos) return 0;
    text.remove_prefix(start);
    const bool negative = text.front() == '-';
    if (negative || text.front() == '+') text.remove_prefix(1);
    double value = 0;
    double scale = 0;  // 0 before the point, then the weight of the next digit
    for (const char c : text) {
        if (c == '.' && scale == 0) {
            scale = 0.1;
        } else if (IsDigit(c)) {
            value = scale == 0 ? value * 10 + (c - '0') : value + (c - '0') * scale;
            scale *= 0.1;
        } else {
            break;
        }
    }
    return negative ? -value : value;
}

std::int16_t LeadingInt16(std::string_view text) {
    const double number = std::nearbyint(LeadingNumber(text));
    return number >= -32768 && number <= 32767 ? static_cast<std::int16_t>(number)
                                               : static_cast<std::int16_t>(0);
}

std::int16_t AddInt16(std::int16_t number, std::int16_t more) {
    const int sum = number + more;
    return sum > INT16_MAX || sum < INT16_MIN ? number : static_cast<std::int16_t>(sum);
}

std::string_view TakeLine(std::string_view& text) {
    const std::size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return line;
}

std::string ReplaceControls(std::string text) {
    for (char& c : text)
        if (static_cast<unsigned char>(c) < ' ') c = ' ';
    return text;
}

std::string Decimal(long long number) {
    char digits[24];
    const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    return {digits, end};
}

bool EqualIgnoringCase(std::string_view left, std::string_view right) {
    return left.size() == right.size() && AsciiLower(left) == AsciiLower(right);
}

std::string AsciiLower(std::string_view text) {
    std::string result(text);
    for (char& c : result)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return result;
}

std::string AsciiUpper(std::string_view text) {
    std::string result(text);
    for (char& c : result)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return result;
}

}  // namespace win
