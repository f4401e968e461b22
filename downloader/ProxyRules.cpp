#include "downloader/ProxyRules.h"

#include <vector>

#include "win/Text.h"

namespace downloader {
namespace {

// Entries stand between semicolons, blanks or line breaks.
std::vector<std::string_view> Entries(std::string_view list) {
    constexpr std::string_view kSeparators = "; \t\r\n";
    std::vector<std::string_view> entries;
    for (std::size_t at = 0; at < list.size();) {
        const std::size_t end = std::min(list.find_first_of(kSeparators, at), list.size());
        if (end > at) entries.push_back(list.substr(at, end - at));
        at = end + 1;
    }
    return entries;
}

// Whether `text` fits the pattern, in which "*" stands for any run of characters.
bool Matches(std::string_view pattern, std::string_view text) {
    std::size_t star = std::string_view::npos;
    std::size_t resume = 0;
    std::size_t p = 0;
    std::size_t t = 0;
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            resume = t;
        } else if (p < pattern.size() && pattern[p] == text[t]) {
            ++p;
            ++t;
        } else if (star != std::string_view::npos) {
            p = star + 1;
            t = ++resume;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*') ++p;
    return p == pattern.size();
}

bool IsBypassed(std::string_view bypass, std::string_view host) {
    const std::string lowerHost = win::AsciiLower(host);
    for (std::string_view entry : Entries(bypass)) {
        if (win::EqualIgnoringCase(entry, "<local>")) {
            if (host.find('.') == std::string_view::npos) return true;
            continue;
        }
        if (const std::size_t scheme = entry.find("://"); scheme != std::string_view::npos)
            entry = entry.substr(scheme + 3);
        if (entry.find(':') == entry.rfind(':')) entry = entry.substr(0, entry.find(':'));
        if (!entry.empty() && Matches(win::AsciiLower(entry), lowerHost)) return true;
    }
    return false;
}

}  // namespace

std::string ChooseProxy(std::string_view proxies, std::string_view bypass, std::string_view scheme,
                        std::string_view host) {
    std::string chosen;
    if (IsBypassed(bypass, host)) return chosen;
    for (const std::string_view entry : Entries(proxies)) {
        const std::size_t equals = entry.find('=');
        const bool isForAll = equals == std::string_view::npos;
        if (!isForAll && !win::EqualIgnoringCase(entry.substr(0, equals), scheme)) continue;
        const std::string_view server = isForAll ? entry : entry.substr(equals + 1);
        if (server.empty()) continue;
        if (!chosen.empty()) chosen += ';';
        chosen += server;
    }
    return chosen;
}

}  // namespace downloader
