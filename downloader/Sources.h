#pragma once
#include <string>

// Where a body comes from: the scheme of the URL picks the source.
namespace downloader {

inline constexpr std::size_t kBodyLimit = 16u * 1024 * 1024;

// A fetched body, or the status that tells why there is none.
struct Reply {
    int status = 0;
    std::string body;
    std::string cacheControl;  // the header; empty where there was none
};

// Fetches the URL from the source of its scheme; kUnknownScheme when there is none.
Reply FetchFrom(const std::string& url);

}  // namespace downloader
