#include "downloader/http/Url.h"

#include <algorithm>
#include <vector>

#include "downloader/http/StatusCodes.h"
#include "win/Text.h"

namespace http {
namespace {

bool IsSchemeChar(char c) {
    return win::IsLetter(c) || win::IsDigit(c) || c == '+' || c == '-' || c == '.';
}

// Resolves the "." and ".." segments of a path that begins with "/".
std::string ResolveDots(std::string_view path) {
    std::vector<std::string_view> kept;
    bool endsAsFolder = false;
    for (std::size_t at = 1; at <= path.size();) {
        const std::size_t end = std::min(path.find('/', at), path.size());
        const std::string_view segment = path.substr(at, end - at);
        const bool isDot = segment == "." || segment == "..";
        if (segment == ".." && !kept.empty()) kept.pop_back();
        if (!isDot) kept.push_back(segment);
        endsAsFolder = isDot;
        at = end + 1;
    }
    std::string clean;
    for (const std::string_view segment : kept) clean.append("/").append(segment);
    if (endsAsFolder || clean.empty()) clean.append("/");
    return clean;
}

// Returns the scheme, host and port in lower case, without the scheme's own port.
std::string OriginOf(std::string_view url) {
    const std::string scheme = SchemeOf(url);
    const std::size_t host = std::min(scheme.size() + 3, url.size());  // after "://"
    const std::size_t end = std::min(url.find_first_of("/?#", host), url.size());
    std::string origin = win::AsciiLower(url.substr(0, end));
    const std::string_view ownPort = scheme == "https" ? ":443" : ":80";
    if (origin.ends_with(ownPort)) origin.resize(origin.size() - ownPort.size());
    return origin;
}

}  // namespace

std::string SchemeOf(std::string_view url) {
    if (url.empty() || !win::IsLetter(url.front())) return {};
    std::size_t length = 0;
    while (length < url.size() && IsSchemeChar(url[length])) ++length;
    if (length == url.size() || url[length] != ':') return {};
    return win::AsciiLower(url.substr(0, length));
}

std::string EscapeUrl(std::string_view url) {
    constexpr char kHex[] = "0123456789ABCDEF";
    constexpr std::string_view kUnsafe = "\"<>\\^`{|}";
    std::string escaped;
    for (const char c : url.substr(0, url.find('#'))) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte > 0x20 && byte < 0x7F && kUnsafe.find(c) == std::string_view::npos) {
            escaped += c;
        } else {
            escaped += '%';
            escaped += kHex[byte >> 4];
            escaped += kHex[byte & 15];
        }
    }
    return escaped;
}

bool IsRedirect(int httpStatus) {
    return (httpStatus >= 301 && httpStatus <= 303) || httpStatus == 307 || httpStatus == 308;
}

std::string ResolveLocation(std::string_view base, std::string_view location) {
    location = win::Trim(location);
    if (!SchemeOf(location).empty()) return std::string(location);
    base = base.substr(0, base.find('#'));
    const std::string scheme = SchemeOf(base);
    if (location.starts_with("//")) return scheme + ":" + std::string(location);

    const std::size_t host = std::min(scheme.size() + 3, base.size());  // after "://"
    const std::size_t pathAt = std::min(base.find_first_of("/?", host), base.size());
    const std::string origin(base.substr(0, pathAt));
    const std::string_view rest = base.substr(pathAt);
    const std::string_view path = rest.substr(0, rest.find('?'));

    if (location.empty() || location.front() == '#') return std::string(base);
    if (location.front() == '?') return origin + std::string(path) + std::string(location);
    const std::string_view target = location.substr(0, location.find_first_of("?#"));
    const std::string_view query = location.substr(target.size());
    std::string folder = "/";
    if (const std::size_t slash = path.rfind('/'); slash != std::string_view::npos)
        folder = path.substr(0, slash + 1);
    const std::string whole =
        target.starts_with('/') ? std::string(target) : folder + std::string(target);
    return origin + ResolveDots(whole) + std::string(query);
}

int CheckRedirect(std::string_view from, std::string_view to, bool staysOnHost) {
    const std::string target = SchemeOf(to);
    if (target != "http" && target != "https") return kForeignRedirect;
    if (SchemeOf(from) == "https" && target == "http") return kInsecureRedirect;
    return staysOnHost && OriginOf(from) != OriginOf(to) ? kForeignRedirect : kSuccess;
}

}  // namespace http
