#pragma once
#include <string>

#include "downloader/http/Response.h"

namespace http {

// Fetches an http or https URL, following redirects. `accept` is the value of the Accept header.
// The status is kSuccess only for HTTP status 200 with a complete, non-blank body of at most
// kBodyLimit bytes.
Response Fetch(const std::string& url, const std::string& accept);

// Starts the clock of FetchWithRetry: no request is repeated later than two thirds of the program's
// time limit after this call, so that the last one has time to succeed.
void StartRetryClock(int limitSeconds);

// Like Fetch, but repeats the request, after growing pauses, while the failure may be temporary.
Response FetchWithRetry(const std::string& url, const std::string& accept);

}  // namespace http
