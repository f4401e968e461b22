#include "downloader/NwsRequestRules.h"

#include <algorithm>

#include "downloader/UrlRules.h"
#include "win/Text.h"

namespace downloader {
namespace {

bool IsHostChar(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           std::string_view(".-:[]").find(c) != std::string_view::npos;
}

// Whether host and port name this machine.
bool IsLoopback(std::string_view host) {
    for (const std::string_view name : {"127.0.0.1", "localhost", "[::1]"})
        if (host.starts_with(name) && (host.size() == name.size() || host[name.size()] == ':'))
            return true;
    return false;
}

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

// Only blanks come escaped; a percent sign that begins no escape stands for itself.
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

// The value of a key in "a=1&b=2", its case ignored; the last key's value may hold anything.
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

std::string PointText(const Place& place) {
    return DegreesText(place.latitude) + "," + DegreesText(place.longitude);
}

bool ReadQuery(std::string_view query, NwsRequest& request) {
    struct Question {
        std::string_view type;
        std::string_view key;
        NwsRequest::Kind kind;
        bool isAbroad;
    };
    constexpr Question kQuestions[] = {
        {"6", "ZipCode", NwsRequest::Kind::alerts, false},
        {"501", "SearchString", NwsRequest::Kind::locations, false},
        {"1", "zipcode", NwsRequest::Kind::stations, false},
        {"1", "CityCode", NwsRequest::Kind::stations, true},
    };
    const auto type = ValueOf(query, "requesttype", false);
    for (const Question& question : kQuestions) {
        const auto value = ValueOf(query, question.key, true);
        if (type != question.type || !value) continue;
        request.kind = question.kind;
        request.text = Unescape(*value);
        // The program marks the code of a city abroad with a zero before it.
        request.isAbroad = question.isAbroad || (question.kind == NwsRequest::Kind::alerts &&
                                                 request.text.starts_with('0') &&
                                                 request.text.size() > 5 && request.text[5] != '-');
        return true;
    }
    return false;
}

}  // namespace

std::optional<NwsRequest> ParseNwsRequest(std::string_view url) {
    const std::string scheme = SchemeOf(url);
    if (scheme != "nws" && scheme != "nws+http") return std::nullopt;
    url.remove_prefix(scheme.size() + 1);
    if (!url.starts_with("//")) return std::nullopt;
    url.remove_prefix(2);
    const std::string_view host = url.substr(0, url.find('/'));
    if (host.empty() || !std::all_of(host.begin(), host.end(), IsHostChar) ||
        (scheme == "nws+http" && !IsLoopback(host)))
        return std::nullopt;
    const std::size_t question = url.find('?');
    if (question == std::string_view::npos || !url.substr(0, question).ends_with("/GetXml.aspx"))
        return std::nullopt;
    NwsRequest request;
    request.origin = (scheme == "nws" ? "https://" : "http://") + std::string(host);
    if (!ReadQuery(url.substr(question + 1), request)) return std::nullopt;
    return request;
}

std::string AlertsAddress(const std::string& origin, const Place& place) {
    return origin + "/alerts/active?status=actual&point=" + PointText(place);
}

std::string PointAddress(const std::string& origin, const Place& place) {
    return origin + "/points/" + PointText(place);
}

bool IsWorthRetrying(int status, std::string_view body) {
    const std::size_t first = body.find_first_not_of(" \t\r\n");
    const bool isPage = first != std::string_view::npos && body[first] == '<';
    return (status >= 500 && status <= 599) || status == 403 || status == 429 || isPage;
}

}  // namespace downloader
