#pragma once
#include <string_view>

namespace downloader {

// How a body is packed: not at all, in a way that WinHTTP unpacks, or in some other way.
enum class Packing { none, known, unknown };

// Reads a Content-Encoding header.
Packing PackingOf(std::string_view contentEncoding);

}  // namespace downloader
