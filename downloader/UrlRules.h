#pragma once
#include <string>
#include <string_view>

// Addresses and redirects.
namespace downloader {

inline constexpr int kRedirectLimit = 10;

// The scheme in lower case, without its colon; empty when the text begins with none.
std::string SchemeOf(std::string_view url);

// The address as it can stand in a request: without fragment, and with every byte that an address
// must not hold (blanks, controls, bars, quotes, bytes from 0x7F on) percent-encoded. Percent signs
// stay.
std::string EscapeUrl(std::string_view url);

// Whether the HTTP status asks to go on at another address.
bool IsRedirect(int httpStatus);

// Where a Location header leads, seen from the address that sent it.
std::string ResolveLocation(std::string_view base, std::string_view location);

// 0, or the status that refuses a redirect between the two addresses.
int CheckRedirect(std::string_view from, std::string_view to);

}  // namespace downloader
