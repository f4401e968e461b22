#pragma once
#include <string>

#include "downloader/http/Response.h"

namespace fpas {

// Answers a feed request from a public alert server: the alerts and the station of a place outside
// the United States, the locations of a name.
http::Response Fetch(const std::string& url);

}  // namespace fpas
