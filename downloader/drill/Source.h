#pragma once
#include <cstdint>
#include <string>

#include "downloader/http/Response.h"

// A source for drills, which needs no connection.
namespace drill {

// Answers a feed request of the scheme "drill". A request for alerts gets one made-up alert,
// whatever its place. The alert's identifier changes every minute, so that each retrieval announces
// it as new. Any other request fails with kOnlyDrillAlerts. `now` is in seconds since 1970.
http::Response Answer(const std::string& url, std::int64_t now);

}  // namespace drill
