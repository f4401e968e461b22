#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "downloader/NwsPlacesRules.h"

// What the program asks of the feed, and which addresses of the Weather Service answer it.
namespace downloader {

struct NwsRequest {
    enum class Kind { alerts, locations, stations };
    Kind kind = Kind::alerts;
    std::string origin;     // "https://api.weather.gov"; the addresses below begin with it
    std::string text;       // the ZIP code, or the text searched for
    bool isAbroad = false;  // asks for a place by a code of places outside the United States
};

// Reads a feed request of the schemes "nws", which asks its host over https, and "nws+http", which
// asks this machine alone, over http. Nothing for any other address.
std::optional<NwsRequest> ParseNwsRequest(std::string_view url);

// The addresses that tell about a place: its alerts, and what is near it.
std::string AlertsAddress(const std::string& origin, const Place& place);
std::string PointAddress(const std::string& origin, const Place& place);

// Whether a second try may do better: the server failed, was asked too often, or a gateway in front
// of it answered with a page of its own.
bool IsWorthRetrying(int status, std::string_view body);

}  // namespace downloader
