#pragma once
#include <string>

#include "downloader/http/Response.h"

namespace nws {

// Answers a feed request from the public API of the US National Weather Service: the alerts and
// stations of a ZIP code, the locations of a name.
http::Response Fetch(const std::string& url);

}  // namespace nws
