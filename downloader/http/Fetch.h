#pragma once
#include <string>

#include "downloader/http/Response.h"

namespace http {

// What a request asks for, and what it accepts as the answer.
struct Terms {
    std::string accept = "*/*";  // the value of the Accept header
    BodyForm form = BodyForm::Any;
    std::size_t longestBody = kBodyLimit;  // bytes
    bool staysOnHost = false;              // redirects must not lead to another host
};

// Fetches an http or https URL, following redirects. The status is kSuccess only for HTTP status
// 200 with a complete body that is not too long and not only white space; its form is not checked.
Response Fetch(const std::string& url, const Terms& terms);

// Starts the clock of FetchWithRetry: no request is repeated later than two thirds of the program's
// time limit after this call, so that the last one has time to succeed.
void StartRetryClock(int limitSeconds);

// Whether a request may still be repeated.
bool HasTimeToRetry();

// Like Fetch, but repeats the request, after growing pauses, while the failure may be temporary. A
// body of another form than expected counts as such a failure; the last one is returned.
Response FetchWithRetry(const std::string& url, const Terms& terms);

}  // namespace http
