#pragma once
#include <string>
#include <string_view>

// URLs and redirects.
namespace http {

inline constexpr int kRedirectLimit = 10;

// Returns the scheme in lower case, without its colon; empty when the text has none.
std::string SchemeOf(std::string_view url);

// Returns the URL as a request can carry it: without the fragment, and with every byte that a URL
// must not contain (spaces, control characters, bars, quotes, bytes from 0x7F up) percent-encoded.
// Percent signs are kept.
std::string EscapeUrl(std::string_view url);

// Whether the HTTP status is a redirect.
bool IsRedirect(int httpStatus);

// Resolves a Location header against the URL of the response that contains it.
std::string ResolveLocation(std::string_view base, std::string_view location);

// Returns kSuccess when a redirect from one URL to the other is allowed, otherwise the status that
// reports the refusal. With `staysOnHost` the scheme, the host and the port must not change.
int CheckRedirect(std::string_view from, std::string_view to, bool staysOnHost);

}  // namespace http
