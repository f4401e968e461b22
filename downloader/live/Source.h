#pragma once
#include <string>

#include "downloader/http/Response.h"

namespace live {

// Answers a feed request from one of the two sources that the URL names; a search for locations
// from both.
http::Response Fetch(const std::string& url);

}  // namespace live
