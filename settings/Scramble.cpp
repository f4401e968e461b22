#include "settings/Scramble.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "win/Text.h"

namespace settings {
namespace {

constexpr int kLastCode = 255;
constexpr int kFirstSpecial = 0x80;

// The code points of the Western ANSI codes 0x80 to 0x9F, the only codes that differ from their
// code points.
constexpr std::array<std::uint16_t, 32> kSpecialCodePoints{
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

// The ANSI code of a character; above kLastCode if it has none.
int CodeOf(std::string_view character, bool utf8) {
    if (!utf8) return static_cast<unsigned char>(character[0]);
    const char32_t number = win::CodePointOf(character);
    const auto special = std::find(kSpecialCodePoints.begin(), kSpecialCodePoints.end(), number);
    if (special != kSpecialCodePoints.end())
        return kFirstSpecial + static_cast<int>(special - kSpecialCodePoints.begin());
    const bool isPlain = number < kFirstSpecial || (number >= 0xA0 && number <= kLastCode);
    return isPlain ? static_cast<int>(number) : kLastCode + 1;
}

void Append(std::string& text, int code, bool utf8) {
    if (code < kFirstSpecial || !utf8) {
        text += static_cast<char>(code);
        return;
    }
    const auto special = static_cast<std::size_t>(code - kFirstSpecial);
    const int number = special < kSpecialCodePoints.size() ? kSpecialCodePoints[special] : code;
    if (number < 0x800) {
        text += static_cast<char>(0xC0 | number >> 6);
    } else {
        text += static_cast<char>(0xE0 | number >> 12);
        text += static_cast<char>(0x80 | (number >> 6 & 0x3F));
    }
    text += static_cast<char>(0x80 | (number & 0x3F));
}

std::optional<std::string> Shift(std::string_view text, int direction) {
    const bool utf8 = win::IsUtf8(text);
    std::string result;
    int position = 0;
    while (!text.empty()) {
        const std::string_view character = utf8 ? win::FirstChars(text, 1) : text.substr(0, 1);
        const int code = CodeOf(character, utf8);
        const int sum = code + direction * ++position;
        if (code > kLastCode || sum < 1 || sum > kLastCode) return std::nullopt;
        Append(result, sum, utf8);
        text.remove_prefix(character.size());
    }
    return result;
}

}  // namespace

std::optional<std::string> Scramble(std::string_view text) {
    return Shift(text, 1);
}

std::optional<std::string> Unscramble(std::string_view text) {
    return Shift(text, -1);
}

}  // namespace settings
