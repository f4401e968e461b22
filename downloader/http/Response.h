#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// A response and the meaning of its status, headers and body.
namespace http {

inline constexpr std::size_t kBodyLimit = std::size_t{16} * 1024 * 1024;  // bytes

// A fetched body, or the status that explains why there is none.
struct Response {
    int status = 0;  // see StatusCodes.h
    std::string body;
    // Headers of the response; empty when absent.
    std::string cacheControl;
    std::string contentType;
    std::string date;
    std::string age;
    std::string retryAfter;
};

// Returns a response without a body.
inline Response Failure(int status) {
    Response response;
    response.status = status;
    return response;
}

// The form of a complete body. A gateway's page and a body that was cut short have another one.
enum class BodyForm {
    Any,
    JsonObject,
    JsonArray,
    NoWebPage,  // any but HTML, for documents that may be damaged
};

// Whether the body begins and ends as its form requires. A byte order mark and white space at
// either end are ignored.
bool HasForm(std::string_view body, BodyForm form);

// The coding of a body: none, one that WinHTTP decodes, or any other.
enum class ContentCoding { None, Supported, Unsupported };

// Parses a Content-Encoding header.
ContentCoding ParseContentCoding(std::string_view contentEncoding);

// Parses a Content-Length header, in bytes. Returns nullopt when it is not a number; a number of
// more than 18 digits counts as the largest.
std::optional<std::uint64_t> ParseContentLength(std::string_view contentLength);

// Whether the body is empty or contains only white space, zero bytes and a UTF-8 byte order mark.
bool IsBlankBody(std::string_view body);

// How long a Cache-Control header allows caching, in seconds: its max-age, at most `longest`; 0
// when it forbids caching or has no max-age.
std::int64_t SecondsToCache(std::string_view cacheControl, std::int64_t longest);

// Whether a Cache-Control header forbids caching.
bool ForbidsCaching(std::string_view cacheControl);

}  // namespace http
