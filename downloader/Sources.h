#pragma once
#include <string>

#include "downloader/http/Response.h"

namespace downloader {

// Fetches a URL from the source that handles its scheme; the status is kUnknownScheme when there is
// none.
http::Response FetchFromSource(const std::string& url);

}  // namespace downloader
