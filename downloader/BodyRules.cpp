#include "downloader/BodyRules.h"

#include <algorithm>
#include <cstdlib>
#include <string>

#include "win/Text.h"

namespace downloader {

Packing PackingOf(std::string_view contentEncoding) {
    const std::string coding = win::AsciiLower(win::TrimBlanks(contentEncoding));
    if (coding.empty() || coding == "identity") return Packing::none;
    return coding == "gzip" || coding == "deflate" ? Packing::known : Packing::unknown;
}

std::optional<std::uint64_t> LengthOf(std::string_view contentLength) {
    constexpr std::size_t mostDigits = 18;
    const std::string digits(win::TrimBlanks(contentLength));
    if (digits.empty() || digits.find_first_not_of("0123456789") != std::string::npos)
        return std::nullopt;
    if (digits.size() > mostDigits) return UINT64_MAX;
    return std::strtoull(digits.c_str(), nullptr, 10);
}

bool IsBlankBody(std::string_view body) {
    if (body.starts_with("\xEF\xBB\xBF")) body.remove_prefix(3);
    return std::all_of(body.begin(), body.end(),
                       [](char c) { return c == '\0' || c == ' ' || (c >= '\t' && c <= '\r'); });
}

}  // namespace downloader
