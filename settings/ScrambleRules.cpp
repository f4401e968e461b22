#include "settings/ScrambleRules.h"

#include "win/TextRules.h"

namespace settings {
namespace {

constexpr int kLastCode = 255;

// The code of a character of one or two bytes; above kLastCode for anything that has none.
int CodeOf(std::string_view character) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(character[i]); };
    if (character.size() == 1) return byte(0);
    if (character.size() == 2) return (byte(0) & 0x1F) << 6 | (byte(1) & 0x3F);
    return kLastCode + 1;
}

void Append(std::string& text, int code, bool utf8) {
    if (code < 0x80 || !utf8) {
        text += static_cast<char>(code);
    } else {
        text += static_cast<char>(0xC0 | code >> 6);
        text += static_cast<char>(0x80 | (code & 0x3F));
    }
}

std::optional<std::string> Shift(std::string_view text, int direction, bool utf8) {
    std::string result;
    int position = 0;
    while (!text.empty()) {
        const std::string_view character = utf8 ? win::FirstChars(text, 1) : text.substr(0, 1);
        const int code = CodeOf(character);
        const int sum = code + direction * ++position;
        if (code > kLastCode || sum < 1 || sum > kLastCode) return std::nullopt;
        Append(result, sum, utf8);
        text.remove_prefix(character.size());
    }
    return result;
}

}  // namespace

std::optional<std::string> Scramble(std::string_view text) {
    return Shift(text, 1, win::IsUtf8(text));
}

std::optional<std::string> Unscramble(std::string_view text) {
    return Shift(text, -1, win::IsUtf8(text));
}

}  // namespace settings
