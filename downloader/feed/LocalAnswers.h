#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "downloader/feed/PlaceSearch.h"
#include "downloader/feed/Request.h"
#include "downloader/http/Response.h"

// The answers that need no server.
namespace feed {

// Returns a document as a response; kUnusableAnswer for nullopt.
http::Response Success(std::optional<std::string> document);

// Answers a search for locations: at most 50 places of the scope.
http::Response AnswerLocations(const std::string& text, Scope scope);

// Answers a request for the alerts or stations of a place that the source does not know. `reason`
// is the text that takes the place of alerts.
http::Response AnswerUnknownPlace(const Request& request, std::string_view reason);

}  // namespace feed
