#include "downloader/Proxy.h"

#include "downloader/Internet.h"
#include "downloader/ProxyRules.h"
#include "settings/ProxyLogin.h"
#include "win/CodePage.h"

namespace downloader {
namespace {

std::string TextOf(const GlobalText& text) {
    return text ? win::FromWide(text.Get()) : std::string();
}

struct ProxyList {
    std::string proxies;
    std::string bypass;
};

ProxyList TakeOver(WINHTTP_PROXY_INFO& info) {
    const GlobalText proxies(info.lpszProxy);
    const GlobalText bypass(info.lpszProxyBypass);
    if (info.dwAccessType != WINHTTP_ACCESS_TYPE_NAMED_PROXY) return {};
    return {TextOf(proxies), TextOf(bypass)};
}

// Asks the configuration script at `script`, or the one that the network announces. False when
// there is none or it does not answer.
bool AskScript(const std::string& url, LPCWSTR script, bool detect, ProxyList& list) {
    const Internet session(WinHttpOpen(nullptr, WINHTTP_ACCESS_TYPE_NO_PROXY, WINHTTP_NO_PROXY_NAME,
                                       WINHTTP_NO_PROXY_BYPASS, 0));
    if (!session) return false;
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
    if (!WinHttpGetProxyForUrl(session.Get(), win::ToWide(url).c_str(), &options, &info))
        return false;
    list = TakeOver(info);
    return true;
}

// The user's settings; the machine's (of services and administrators) where the user has none.
ProxyList ReadProxyList(const std::string& url) {
    WINHTTP_CURRENT_USER_IE_PROXY_CONFIG user{};
    ProxyList list;
    if (WinHttpGetIEProxyConfigForCurrentUser(&user)) {
        const GlobalText script(user.lpszAutoConfigUrl);
        const GlobalText proxies(user.lpszProxy);
        const GlobalText bypass(user.lpszProxyBypass);
        if (user.fAutoDetect && AskScript(url, nullptr, true, list)) return list;
        if (script && AskScript(url, script.Get(), false, list)) return list;
        if (proxies) return {TextOf(proxies), TextOf(bypass)};
    }
    WINHTTP_PROXY_INFO machine{};
    return WinHttpGetDefaultProxyConfiguration(&machine) ? TakeOver(machine) : ProxyList{};
}

}  // namespace

std::string FindProxy(const std::string& url, const std::string& scheme, const std::string& host) {
    const ProxyList list = ReadProxyList(url);
    return ChooseProxy(list.proxies, list.bypass, scheme, host);
}

bool AddProxyLogin(HINTERNET request) {
    const settings::ProxyLogin login = settings::ReadProxyLogin();
    DWORD offered = 0;
    DWORD first = 0;
    DWORD target = 0;
    if (login.userName.empty() || !WinHttpQueryAuthSchemes(request, &offered, &first, &target) ||
        target != WINHTTP_AUTH_TARGET_PROXY)
        return false;
    // The strongest first.
    for (const DWORD scheme : {WINHTTP_AUTH_SCHEME_NEGOTIATE, WINHTTP_AUTH_SCHEME_NTLM,
                               WINHTTP_AUTH_SCHEME_DIGEST, WINHTTP_AUTH_SCHEME_BASIC})
        if (offered & scheme)
            return WinHttpSetCredentials(request, WINHTTP_AUTH_TARGET_PROXY, scheme,
                                         win::ToWide(login.userName).c_str(),
                                         win::ToWide(login.password).c_str(), nullptr);
    return false;
}

}  // namespace downloader
