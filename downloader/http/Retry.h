#pragma once
#include <cstdint>
#include <optional>
#include <string_view>

#include "downloader/http/Response.h"

// When a failed request is tried again. A computer that has just woken has no network for some
// seconds, and a busy server recovers later.
namespace http {

// Whether a later try may succeed: the connection failed, the server failed or received too many
// requests, or the body has another form than it should have (a gateway's page, an incomplete
// answer).
bool IsTransient(const Response& response, BodyForm form);

// Returns how many milliseconds to wait after a failure before the next try, or nullopt if there is
// to be none.
// `failures` is the number of tries so far, `elapsed` and `latest` count milliseconds since the
// program's start: no try starts after `latest`. The waits are 1, 2, 4 and then 8 seconds, up to a
// quarter longer by `jitter` (0 to 255), so that many computers do not ask at the same moments. A
// longer wait that the server asks for (Retry-After) takes their place.
std::optional<std::int64_t> WaitBeforeRetry(const Response& response, int failures,
                                            std::int64_t elapsed, std::int64_t latest,
                                            unsigned char jitter);

// Returns the server's time when the response arrived, in seconds since 1970: its Date, plus its
// Age if a cache served it. Returns nullopt without a Date.
std::optional<std::int64_t> ServerTime(const Response& response);

// Parses an HTTP date such as "Tue, 15 Nov 1994 08:12:31 GMT", in seconds since 1970. Returns
// nullopt for any other text.
std::optional<std::int64_t> ParseHttpDate(std::string_view text);

}  // namespace http
