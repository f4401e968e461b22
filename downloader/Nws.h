#pragma once
#include <string>

#include "downloader/Sources.h"

namespace downloader {

// Answers a feed request from the public API of the US National Weather Service: alerts and
// stations of a ZIP code, locations of a name.
Reply FetchFromNws(const std::string& url);

}  // namespace downloader
