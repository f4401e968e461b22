#include "downloader/http/Fetch.h"

#include <cstdlib>
#include <optional>

#include "downloader/http/Internet.h"
#include "downloader/http/Proxy.h"
#include "downloader/http/Retry.h"
#include "downloader/http/StatusCodes.h"
#include "downloader/http/Url.h"
#include "settings/Addresses.h"
#include "settings/Product.h"
#include "win/CodePage.h"
#include "win/NeverDestroyed.h"
#include "win/Text.h"

namespace http {
namespace {

constexpr int kConnectTimeout = 15'000;  // milliseconds; also for name resolution
constexpr int kSilenceTimeout = 30'000;  // milliseconds without a byte sent or received
constexpr DWORD kTls12 = WINHTTP_FLAG_SECURE_PROTOCOL_TLS1_2;
constexpr DWORD kAutologonProxyOnly = 3;  // newer systems only; not in the cross compiler's headers
constexpr DWORD kTls13 = WINHTTP_FLAG_SECURE_PROTOCOL_TLS1_3;

struct Address {
    std::string url;
    std::wstring host;
    std::wstring target;
    INTERNET_PORT port = 0;
    bool isSecure = false;
};

// A session through proxies; empty proxies mean a direct connection.
struct Session {
    std::string proxies;
    Internet handle;
};

// The session of the last request. The next request through the same proxies uses it again, and
// with it the connection to the server.
Session& lastSession = win::NeverDestroyed<Session>();

// A request with its connection.
struct Exchange {
    Internet connection;
    Internet request;
    bool viaProxy = false;
    bool decompresses = false;
};

// When the program started, and how long after that a request may still be repeated.
struct RetryClock {
    ULONGLONG start = 0;
    std::int64_t latest = 0;  // milliseconds
} retryClock;

// Returns the milliseconds since the program's start.
std::int64_t Elapsed() {
    return static_cast<std::int64_t>(GetTickCount64() - retryClock.start);
}

int LastStatus() {
    return StatusOfSystemError(GetLastError());
}

bool SetNumber(HINTERNET handle, DWORD option, DWORD value) {
    return WinHttpSetOption(handle, option, &value, sizeof value);
}

// Splits a URL. Returns kSuccess or the status of a failure.
int ParseAddress(const std::string& url, Address& address) {
    address.url = EscapeUrl(url);
    const std::wstring wide = win::ToWide(address.url);
    URL_COMPONENTS parts{};
    parts.dwStructSize = sizeof parts;
    parts.dwHostNameLength = parts.dwUrlPathLength = parts.dwExtraInfoLength = DWORD(-1);
    if (!WinHttpCrackUrl(wide.c_str(), static_cast<DWORD>(wide.size()), 0, &parts))
        return LastStatus();
    if (parts.dwHostNameLength == 0) return ERROR_WINHTTP_INVALID_URL;
    address.host.assign(parts.lpszHostName, parts.dwHostNameLength);
    address.target.assign(parts.lpszUrlPath, parts.dwUrlPathLength);
    address.target.append(parts.lpszExtraInfo, parts.dwExtraInfoLength);
    if (!address.target.starts_with(L'/')) address.target.insert(0, L"/");
    address.port = parts.nPort;
    address.isSecure = parts.nScheme == INTERNET_SCHEME_HTTPS;
    return kSuccess;
}

std::wstring UserAgent() {
    // The host is a setting; a line break in it must not add a header.
    return win::ToWide(
        win::ReplaceControls("SkyvaneAlerts/" SKYVANE_VERSION " (+" + settings::MakerHost() + ")"));
}

bool OpenSession(const Address& address, Exchange& exchange) {
    const std::string proxies =
        FindProxy(address.url, address.isSecure ? "https" : "http", win::FromWide(address.host));
    exchange.viaProxy = !proxies.empty();
    if (lastSession.handle && lastSession.proxies == proxies) return true;
    lastSession.proxies = proxies;
    lastSession.handle.Reset(WinHttpOpen(
        UserAgent().c_str(),
        exchange.viaProxy ? WINHTTP_ACCESS_TYPE_NAMED_PROXY : WINHTTP_ACCESS_TYPE_NO_PROXY,
        exchange.viaProxy ? win::ToWide(proxies).c_str() : WINHTTP_NO_PROXY_NAME,
        WINHTTP_NO_PROXY_BYPASS, 0));
    const HINTERNET session = lastSession.handle.Get();
    if (!session) return false;
    if (!WinHttpSetTimeouts(session, kConnectTimeout, kConnectTimeout, kSilenceTimeout,
                            kSilenceTimeout)) {
        lastSession.handle.Reset();
        return false;
    }
    // Older systems lack TLS 1.3, and their defaults are below what most servers now accept.
    if (!SetNumber(session, WINHTTP_OPTION_SECURE_PROTOCOLS, kTls12 | kTls13))
        SetNumber(session, WINHTTP_OPTION_SECURE_PROTOCOLS, kTls12);
    // A broken IPv6 path costs a moment instead of the connection; older systems lack the option.
    SetNumber(session, WINHTTP_OPTION_IPV6_FAST_FALLBACK, TRUE);
    return true;
}

bool OpenRequest(const Address& address, const std::string& accept, Exchange& exchange) {
    exchange.connection.Reset(
        WinHttpConnect(lastSession.handle.Get(), address.host.c_str(), address.port, 0));
    if (!exchange.connection) return false;
    const std::wstring wideAccept = win::ToWide(accept);
    LPCWSTR acceptTypes[] = {wideAccept.c_str(), nullptr};
    exchange.request.Reset(WinHttpOpenRequest(
        exchange.connection.Get(), L"GET", address.target.c_str(), nullptr, WINHTTP_NO_REFERER,
        acceptTypes, WINHTTP_FLAG_ESCAPE_DISABLE | (address.isSecure ? WINHTTP_FLAG_SECURE : 0)));
    const HINTERNET request = exchange.request.Get();
    if (!request) return false;
    // Redirects are followed by Fetch, which checks each of them. The Windows user's own login may
    // go to a proxy, where the system can tell it from a server, but never to a server.
    if (!SetNumber(request, WINHTTP_OPTION_DISABLE_FEATURE,
                   WINHTTP_DISABLE_COOKIES | WINHTTP_DISABLE_REDIRECTS) ||
        (!SetNumber(request, WINHTTP_OPTION_AUTOLOGON_POLICY, kAutologonProxyOnly) &&
         !SetNumber(request, WINHTTP_OPTION_AUTOLOGON_POLICY,
                    WINHTTP_AUTOLOGON_SECURITY_LEVEL_HIGH)))
        return false;
    exchange.decompresses =
        SetNumber(request, WINHTTP_OPTION_DECOMPRESSION, WINHTTP_DECOMPRESSION_FLAG_ALL);
    return true;
}

bool Send(HINTERNET request) {
    constexpr int kLegs = 4;  // some authentication schemes take several requests
    for (int leg = 0; leg < kLegs; ++leg) {
        if (!WinHttpSendRequest(request, WINHTTP_NO_ADDITIONAL_HEADERS, 0, WINHTTP_NO_REQUEST_DATA,
                                0, 0, 0))
            return false;
        if (WinHttpReceiveResponse(request, nullptr)) return true;
        if (GetLastError() != ERROR_WINHTTP_RESEND_REQUEST) return false;
    }
    return false;
}

// Returns the text of a header; empty when the response has none.
std::string Header(HINTERNET request, DWORD header) {
    DWORD bytes = 0;
    WinHttpQueryHeaders(request, header, WINHTTP_HEADER_NAME_BY_INDEX, WINHTTP_NO_OUTPUT_BUFFER,
                        &bytes, WINHTTP_NO_HEADER_INDEX);
    if (GetLastError() != ERROR_INSUFFICIENT_BUFFER) return {};
    std::wstring text(bytes / sizeof(wchar_t), L'\0');
    if (!WinHttpQueryHeaders(request, header, WINHTTP_HEADER_NAME_BY_INDEX, text.data(), &bytes,
                             WINHTTP_NO_HEADER_INDEX))
        return {};
    text.resize(bytes / sizeof(wchar_t));
    return win::FromWide(text);
}

void ReadHeaders(HINTERNET request, Response& response) {
    response.cacheControl = Header(request, WINHTTP_QUERY_CACHE_CONTROL);
    response.contentType = Header(request, WINHTTP_QUERY_CONTENT_TYPE);
    response.date = Header(request, WINHTTP_QUERY_DATE);
    response.age = Header(request, WINHTTP_QUERY_AGE);
    response.retryAfter = Header(request, WINHTTP_QUERY_RETRY_AFTER);
}

int HttpStatus(HINTERNET request) {
    return std::atoi(Header(request, WINHTTP_QUERY_STATUS_CODE).c_str());
}

// Whether a 407 can only come from a proxy: one is in use, and no encrypted tunnel to a server has
// been opened through it.
bool IsFromProxy(const Exchange& exchange) {
    DWORD bits = 0;
    DWORD size = sizeof bits;
    const bool isEncrypted =
        WinHttpQueryOption(exchange.request.Get(), WINHTTP_OPTION_SECURITY_KEY_BITNESS, &bits,
                           &size) &&
        bits > 0;
    return exchange.viaProxy && !isEncrypted;
}

// Sends the request. Returns the HTTP status, or the status of a failure.
int RequestAddress(const Address& address, const std::string& accept, Exchange& exchange) {
    if (!OpenSession(address, exchange) || !OpenRequest(address, accept, exchange) ||
        !Send(exchange.request.Get()))
        return LastStatus();
    const HINTERNET request = exchange.request.Get();
    int status = HttpStatus(request);
    if (status == HTTP_STATUS_PROXY_AUTH_REQ && IsFromProxy(exchange) && AddProxyLogin(request)) {
        if (!Send(request)) return LastStatus();
        status = HttpStatus(request);
    }
    return status != 0 ? status : ERROR_WINHTTP_INVALID_SERVER_RESPONSE;
}

// Reads the rest of the body; fails when it exceeds `longest` bytes.
int ReadToEnd(HINTERNET request, std::size_t longest, std::string& body) {
    constexpr DWORD kStep = 64 * 1024;
    for (;;) {
        const std::size_t before = body.size();
        body.resize(before + kStep);
        DWORD read = 0;
        if (!WinHttpReadData(request, body.data() + before, kStep, &read)) return LastStatus();
        body.resize(before + read);
        if (read == 0) return kSuccess;
        if (body.size() > longest) return kBodyTooLarge;
    }
}

int ReadBody(const Exchange& exchange, std::size_t longest, std::string& body) {
    const HINTERNET request = exchange.request.Get();
    const ContentCoding coding =
        ParseContentCoding(Header(request, WINHTTP_QUERY_CONTENT_ENCODING));
    if (coding == ContentCoding::Unsupported ||
        (coding == ContentCoding::Supported && !exchange.decompresses))
        return kUndecodableBody;
    const std::string length = Header(request, WINHTTP_QUERY_CONTENT_LENGTH);
    std::uint64_t promised = 0;
    if (!length.empty() && Header(request, WINHTTP_QUERY_TRANSFER_ENCODING).empty()) {
        const auto stated = ParseContentLength(length);
        if (!stated) return ERROR_WINHTTP_INVALID_SERVER_RESPONSE;
        promised = *stated;
    }
    if (promised > longest) return kBodyTooLarge;
    const int status = ReadToEnd(request, longest, body);
    // After the headers, a lost connection means a truncated body, and an invalid response means
    // malformed chunks or compressed data.
    if (status == ERROR_WINHTTP_CONNECTION_ERROR) return kTruncatedBody;
    if (status == ERROR_WINHTTP_INVALID_SERVER_RESPONSE)
        return coding == ContentCoding::Supported ? kUndecodableBody : kTruncatedBody;
    if (status == kSuccess && coding == ContentCoding::None && body.size() < promised)
        return kTruncatedBody;
    return status == kSuccess && IsBlankBody(body) ? kBlankBody : status;
}

}  // namespace

Response Fetch(const std::string& url, const Terms& terms) {
    std::string current = url;
    for (int redirects = 0;; ++redirects) {
        Address address;
        Exchange exchange;
        Response response;
        if (response.status = ParseAddress(current, address); response.status != kSuccess)
            return response;
        response.status = RequestAddress(address, terms.accept, exchange);
        const HINTERNET request = exchange.request.Get();
        if (request) ReadHeaders(request, response);
        if (response.status == HTTP_STATUS_OK) {
            response.status = ReadBody(exchange, terms.longestBody, response.body);
            return response;
        }
        const std::string location = Header(request, WINHTTP_QUERY_LOCATION);
        if (!IsRedirect(response.status) || location.empty()) return response;
        if (redirects == kRedirectLimit) return Failure(kTooManyRedirects);
        const std::string next = ResolveLocation(address.url, location);
        const int refusal = CheckRedirect(address.url, next, terms.staysOnHost);
        if (refusal != kSuccess) return Failure(refusal);
        current = next;
    }
}

void StartRetryClock(int limitSeconds) {
    retryClock.start = GetTickCount64();
    retryClock.latest = std::int64_t{limitSeconds} * 1000 * 2 / 3;
}

bool HasTimeToRetry() {
    return Elapsed() <= retryClock.latest;
}

Response FetchWithRetry(const std::string& url, const Terms& terms) {
    for (int failures = 1;; ++failures) {
        Response response = Fetch(url, terms);
        if (!IsTransient(response, terms.form)) return response;
        LARGE_INTEGER counter;
        QueryPerformanceCounter(&counter);  // its low bits differ between computers
        const auto wait = WaitBeforeRetry(response, failures, Elapsed(), retryClock.latest,
                                          static_cast<unsigned char>(counter.LowPart));
        if (!wait) return response;
        Sleep(static_cast<DWORD>(*wait));
    }
}

}  // namespace http
