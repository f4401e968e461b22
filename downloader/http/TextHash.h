#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace http {

// Returns the FNV-1a hash of the text. Not for secrets.
inline std::uint64_t HashOf(std::string_view text) {
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3;
    return hash;
}

// Returns a hash as 16 hexadecimal digits.
inline std::string HexDigits(std::uint64_t hash) {
    std::string digits(16, '0');
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit, hash >>= 4)
        *digit = "0123456789ABCDEF"[hash & 15];
    return digits;
}

}  // namespace http
