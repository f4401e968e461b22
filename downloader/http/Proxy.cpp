#include "downloader/http/Proxy.h"

#include <algorithm>
#include <vector>

#include "downloader/http/Internet.h"
#include "settings/ProxyLogin.h"
#include "win/CodePage.h"
#include "win/NeverDestroyed.h"
#include "win/Text.h"

namespace http {
namespace {

std::string TextOf(const GlobalText& text) {
    return text ? win::FromWide(text.Get()) : std::string();
}

struct ProxyList {
    std::string proxies;
    std::string bypass;
};

// Converts the structure and frees the strings in it.
ProxyList TakeProxyList(const WINHTTP_PROXY_INFO& info) {
    const GlobalText proxies(info.lpszProxy);
    const GlobalText bypass(info.lpszProxyBypass);
    if (info.dwAccessType != WINHTTP_ACCESS_TYPE_NAMED_PROXY) return {};
    return {TextOf(proxies), TextOf(bypass)};
}

// The session of the configuration scripts, with which WinHTTP caches them.
Internet& scriptSession = win::NeverDestroyed<Internet>();

// Whether the network announced no script, or one that could not be downloaded. Detection can take
// seconds and is not repeated after a failure.
bool detectionFailed = false;

// Runs the configuration script at the URL `script`, or the one that the network announces when
// `detect` is set. Returns false when there is no script or it fails.
bool RunConfigurationScript(const std::string& url, LPCWSTR script, bool detect, ProxyList& list) {
    if (detect && detectionFailed) return false;
    if (!scriptSession)
        scriptSession.Reset(WinHttpOpen(nullptr, WINHTTP_ACCESS_TYPE_NO_PROXY,
                                        WINHTTP_NO_PROXY_NAME, WINHTTP_NO_PROXY_BYPASS, 0));
    if (!scriptSession) return false;
    WINHTTP_AUTOPROXY_OPTIONS options{};
    options.fAutoLogonIfChallenged = FALSE;
    if (detect) {
        options.dwFlags = WINHTTP_AUTOPROXY_AUTO_DETECT;
        options.dwAutoDetectFlags = WINHTTP_AUTO_DETECT_TYPE_DHCP | WINHTTP_AUTO_DETECT_TYPE_DNS_A;
    } else {
        options.dwFlags = WINHTTP_AUTOPROXY_CONFIG_URL;
        options.lpszAutoConfigUrl = script;
    }
    WINHTTP_PROXY_INFO info{};
    const std::wstring wideUrl = win::ToWide(url);
    if (!WinHttpGetProxyForUrl(scriptSession.Get(), wideUrl.c_str(), &options, &info)) {
        const DWORD error = GetLastError();
        // Any other failure may be that of the script for this URL.
        if (detect)
            detectionFailed = error == ERROR_WINHTTP_AUTODETECTION_FAILED ||
                              error == ERROR_WINHTTP_UNABLE_TO_DOWNLOAD_SCRIPT;
        return false;
    }
    list = TakeProxyList(info);
    return true;
}

// Reads the user's settings, or the machine's (for services and administrators) when the user has
// none.
ProxyList ReadProxyList(const std::string& url) {
    WINHTTP_CURRENT_USER_IE_PROXY_CONFIG user{};
    ProxyList list;
    if (WinHttpGetIEProxyConfigForCurrentUser(&user)) {
        const GlobalText script(user.lpszAutoConfigUrl);
        const GlobalText proxies(user.lpszProxy);
        const GlobalText bypass(user.lpszProxyBypass);
        if (user.fAutoDetect && RunConfigurationScript(url, nullptr, true, list)) return list;
        if (script && RunConfigurationScript(url, script.Get(), false, list)) return list;
        if (proxies) return {TextOf(proxies), TextOf(bypass)};
    }
    WINHTTP_PROXY_INFO machine{};
    return WinHttpGetDefaultProxyConfiguration(&machine) ? TakeProxyList(machine) : ProxyList{};
}

// Splits a list at semicolons, white space and line breaks.
std::vector<std::string_view> SplitList(std::string_view list) {
    constexpr std::string_view kSeparators = "; \t\r\n";
    std::vector<std::string_view> entries;
    for (std::size_t at = 0; at < list.size();) {
        const std::size_t end = std::min(list.find_first_of(kSeparators, at), list.size());
        if (end > at) entries.push_back(list.substr(at, end - at));
        at = end + 1;
    }
    return entries;
}

// Whether `text` matches the pattern, in which "*" matches any run of characters.
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
    for (std::string_view entry : SplitList(bypass)) {
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

// Without a stored login, the Windows user's own one serves where no password would be sent.
bool AddOwnLogin(HINTERNET request, DWORD offered) {
    for (const DWORD scheme : {WINHTTP_AUTH_SCHEME_NEGOTIATE, WINHTTP_AUTH_SCHEME_NTLM})
        if (offered & scheme)
            return WinHttpSetCredentials(request, WINHTTP_AUTH_TARGET_PROXY, scheme, nullptr,
                                         nullptr, nullptr);
    return false;
}

}  // namespace

std::string FindProxy(const std::string& url, const std::string& scheme, const std::string& host) {
    const ProxyList list = ReadProxyList(url);
    return ChooseProxy(list.proxies, list.bypass, scheme, host);
}

std::string ChooseProxy(std::string_view proxies, std::string_view bypass, std::string_view scheme,
                        std::string_view host) {
    std::string chosen;
    if (IsBypassed(bypass, host)) return chosen;
    for (const std::string_view entry : SplitList(proxies)) {
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

bool AddProxyLogin(HINTERNET request) {
    const settings::ProxyLogin login = settings::ReadProxyLogin();
    DWORD offered = 0;
    DWORD first = 0;
    DWORD target = 0;
    if (!WinHttpQueryAuthSchemes(request, &offered, &first, &target) ||
        target != WINHTTP_AUTH_TARGET_PROXY)
        return false;
    if (login.userName.empty()) return AddOwnLogin(request, offered);
    // Strongest first.
    for (const DWORD scheme : {WINHTTP_AUTH_SCHEME_NEGOTIATE, WINHTTP_AUTH_SCHEME_NTLM,
                               WINHTTP_AUTH_SCHEME_DIGEST, WINHTTP_AUTH_SCHEME_BASIC})
        if (offered & scheme)
            return WinHttpSetCredentials(request, WINHTTP_AUTH_TARGET_PROXY, scheme,
                                         win::ToWide(login.userName).c_str(),
                                         win::ToWide(login.password).c_str(), nullptr);
    return false;
}

}  // namespace http
