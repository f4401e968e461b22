#include "downloader/http/Response.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "win/Text.h"

namespace http {
namespace {

// The directives of a Cache-Control header in lower case, without spaces.
std::vector<std::string> Directives(std::string_view cacheControl) {
    return win::Split(win::ReplaceAll(win::AsciiLower(cacheControl), " ", ""), ",");
}

}  // namespace

bool HasForm(std::string_view body, BodyForm form) {
    constexpr std::size_t kLongestTag = 16;
    if (body.starts_with("\xEF\xBB\xBF")) body.remove_prefix(3);
    body = win::Trim(body, " \t\r\n");
    switch (form) {
        case BodyForm::JsonObject:
            return body.starts_with('{') && body.ends_with('}');
        case BodyForm::JsonArray:
            return body.starts_with('[') && body.ends_with(']');
        case BodyForm::NoWebPage: {
            const std::string start = win::AsciiLower(body.substr(0, kLongestTag));
            return !start.starts_with("<html") && !start.starts_with("<!doctype html");
        }
        case BodyForm::Any:
            break;
    }
    return true;
}

ContentCoding ParseContentCoding(std::string_view contentEncoding) {
    const std::string coding = win::AsciiLower(win::Trim(contentEncoding));
    if (coding.empty() || coding == "identity") return ContentCoding::None;
    return coding == "gzip" || coding == "deflate" ? ContentCoding::Supported
                                                   : ContentCoding::Unsupported;
}

std::optional<std::uint64_t> ParseContentLength(std::string_view contentLength) {
    constexpr std::size_t kMostDigits = 18;
    const std::string digits(win::Trim(contentLength));
    if (digits.empty() || !std::all_of(digits.begin(), digits.end(), win::IsDigit))
        return std::nullopt;
    if (digits.size() > kMostDigits) return UINT64_MAX;
    return std::strtoull(digits.c_str(), nullptr, 10);
}

bool IsBlankBody(std::string_view body) {
    if (body.starts_with("\xEF\xBB\xBF")) body.remove_prefix(3);
    return std::all_of(body.begin(), body.end(),
                       [](char c) { return c == '\0' || c == ' ' || (c >= '\t' && c <= '\r'); });
}

std::int64_t SecondsToCache(std::string_view cacheControl, std::int64_t longest) {
    constexpr std::string_view kMaxAge = "max-age=";
    if (ForbidsCaching(cacheControl)) return 0;
    for (const std::string& directive : Directives(cacheControl)) {
        if (!directive.starts_with(kMaxAge)) continue;
        const char* const seconds = directive.c_str() + kMaxAge.size();
        return std::clamp<std::int64_t>(std::strtoll(seconds, nullptr, 10), 0, longest);
    }
    return 0;
}

bool ForbidsCaching(std::string_view cacheControl) {
    for (const std::string& directive : Directives(cacheControl))
        if (directive == "no-store" || directive.starts_with("no-cache")) return true;
    return false;
}

}  // namespace http
