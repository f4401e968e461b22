#pragma once
#include <cstdint>
#include <optional>
#include <string_view>

// What the headers of an answer tell about its body, and whether the body is one.
namespace downloader {

// How a body is packed: not at all, in a way that WinHTTP unpacks, or in some other way.
enum class Packing { none, known, unknown };

// Reads a Content-Encoding header.
Packing PackingOf(std::string_view contentEncoding);

// Reads a Content-Length header, in bytes; nothing when it is no number. A number with more than 18
// digits counts as the largest.
std::optional<std::uint64_t> LengthOf(std::string_view contentLength);

// Whether the body is empty or holds only white space, zero bytes and a byte order mark of UTF-8.
bool IsBlankBody(std::string_view body);

}  // namespace downloader
