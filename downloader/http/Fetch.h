#pragma once
#include <string>

#include "downloader/http/Response.h"

namespace http {

// Fetches an http or https URL, following redirects. `accept` is the value of the Accept header.
// The status is kSuccess only for HTTP status 200 with a complete, non-blank body of at most
// kBodyLimit bytes.
Response Fetch(const std::string& url, const std::string& accept);

// Like Fetch, but repeats the request once, after a pause, when the failure may be temporary.
Response FetchWithRetry(const std::string& url, const std::string& accept);

}  // namespace http
