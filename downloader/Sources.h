#pragma once
#include <string>

#include "downloader/http/Response.h"

namespace downloader {

// Returns the document that takes the place of a failure of the URL's source; empty when failures
// are reported.
std::string SubstituteForFailure(const std::string& url);

// Fetches a URL from the source that handles its scheme; the status is kUnknownScheme when there is
// none.
http::Response FetchFromSource(const std::string& url);

}  // namespace downloader
