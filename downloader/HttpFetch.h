#pragma once
#include <string>

#include "downloader/Sources.h"

namespace downloader {

// Fetches an http or https address, following redirects. Only the HTTP status 200 with a whole body
// that is not blank, of at most kBodyLimit bytes, is a success. `accept` is the Accept header's
// value.
Reply HttpGet(const std::string& url, const std::string& accept);

}  // namespace downloader
