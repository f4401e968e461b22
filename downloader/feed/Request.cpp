#include "downloader/feed/Request.h"

#include <algorithm>

#include "win/Text.h"

namespace feed {
namespace {

bool IsHostChar(char c) {
    return win::IsLetter(c) || win::IsDigit(c) ||
           std::string_view(".-:[]").find(c) != std::string_view::npos;
}

bool IsPathChar(char c) {
    return win::IsLetter(c) || win::IsDigit(c) ||
           std::string_view("/.-_~").find(c) != std::string_view::npos;
}

// Whether a host, with or without a port, is this machine.
bool IsLoopback(std::string_view host) {
    for (const std::string_view name : {"127.0.0.1", "localhost", "[::1]"})
        if (host.starts_with(name) && (host.size() == name.size() || host[name.size()] == ':'))
            return true;
    return false;
}

// Returns the value of a hexadecimal digit, or -1.
int HexDigit(char c) {
    if (win::IsDigit(c)) return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

// Decodes percent escapes. The program escapes spaces only, so a percent sign that does not begin
// an escape is kept.
std::string Unescape(std::string_view text) {
    std::string plain;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool isEscape = text[at] == '%' && at + 2 < text.size() &&
                              HexDigit(text[at + 1]) >= 0 && HexDigit(text[at + 2]) >= 0;
        if (!isEscape) {
            plain += text[at];
            continue;
        }
        plain += static_cast<char>(HexDigit(text[at + 1]) * 16 + HexDigit(text[at + 2]));
        at += 2;
    }
    return plain;
}

// Finds the value of a key in "a=1&b=2", ignoring the key's case. The value of the last key may
// contain "&".
std::optional<std::string_view> ValueOf(std::string_view query, std::string_view key, bool isLast) {
    while (!query.empty()) {
        const std::size_t end = std::min(query.find('&'), query.size());
        const std::size_t equals = query.find('=');
        if (equals < end && win::EqualIgnoringCase(query.substr(0, equals), key))
            return isLast ? query.substr(equals + 1) : query.substr(equals + 1, end - equals - 1);
        query.remove_prefix(std::min(end + 1, query.size()));
    }
    return std::nullopt;
}

// Parses the query into `request`; returns false when its type is unknown or its value is missing.
bool ParseQuery(std::string_view query, Request& request) {
    using Kind = Request::Kind;
    struct Form {
        std::string_view type;
        std::string_view key;
        Kind kind;
        bool isAbroad;
    };
    constexpr Form kForms[] = {
        {"6", "ZipCode", Kind::Alerts, false},
        {"501", "SearchString", Kind::Locations, false},
        {"1", "zipcode", Kind::Stations, false},
        {"1", "CityCode", Kind::Stations, true},
    };
    const auto type = ValueOf(query, "requesttype", false);
    for (const Form& form : kForms) {
        const auto value = ValueOf(query, form.key, true);
        if (type != form.type || !value) continue;
        request.kind = form.kind;
        request.text = Unescape(*value);
        // The program prefixes the code of a city abroad with a zero in requests for alerts.
        request.isAbroad =
            form.isAbroad || (form.kind == Kind::Alerts && request.text.starts_with('0') &&
                              request.text.size() > 5 && request.text[5] != '-');
        return true;
    }
    return false;
}

}  // namespace

std::optional<Request> ParseRequest(std::string_view url, std::string_view scheme) {
    constexpr std::string_view kAuthority = "://";
    constexpr std::string_view kPage = "/GetXml.aspx";
    const std::size_t schemeEnd = url.find(kAuthority);
    if (schemeEnd == std::string_view::npos) return std::nullopt;
    const std::string urlScheme = win::AsciiLower(url.substr(0, schemeEnd));
    const bool isSecure = urlScheme == scheme;
    if (!isSecure && urlScheme != std::string(scheme) + "+http") return std::nullopt;
    url.remove_prefix(schemeEnd + kAuthority.size());
    const std::string_view host = url.substr(0, url.find('/'));
    if (host.empty() || !std::all_of(host.begin(), host.end(), IsHostChar) ||
        (!isSecure && !IsLoopback(host)))
        return std::nullopt;
    const std::size_t question = url.find('?');
    const std::string_view page = url.substr(0, question);
    if (question == std::string_view::npos || !page.ends_with(kPage) ||
        !std::all_of(page.begin() + host.size(), page.end(), IsPathChar))
        return std::nullopt;
    Request request;
    request.origin = isSecure ? "https://" : "http://";
    request.origin += page.substr(0, page.size() - kPage.size());
    if (!ParseQuery(url.substr(question + 1), request)) return std::nullopt;
    return request;
}

}  // namespace feed
