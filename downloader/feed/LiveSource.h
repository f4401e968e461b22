#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "downloader/feed/PlaceSearch.h"
#include "downloader/http/Response.h"

// What all live sources do alike.
namespace feed {

// A live source. Its functions request the alerts for a place, or the stations near it, from the
// server at `origin`.
struct LiveSource {
    std::string_view scheme;
    Scope scope;
    std::string_view unknownPlace;  // shown instead of the alerts for a place that it does not know
    std::optional<Place> (*findPlace)(const Gazetteer& gazetteer, std::string_view code);
    http::Response (*fetchAlerts)(const std::string& origin, const Place& place);
    http::Response (*fetchStations)(const std::string& origin, const Place& place);
};

// Answers a feed request with the source's functions and the gazetteer.
http::Response AnswerRequest(const std::string& url, const LiveSource& source);

// Answers a search for locations: at most 50 places of the scope.
http::Response AnswerLocations(const std::string& text, Scope scope);

// Returns a document as a response; kUnusableAnswer for nullopt.
http::Response Success(std::optional<std::string> document);

}  // namespace feed
