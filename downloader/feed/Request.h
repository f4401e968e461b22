#pragma once
#include <optional>
#include <string>
#include <string_view>

namespace feed {

// A request of the program to a live source.
struct Request {
    enum class Kind { Alerts, Locations, Stations };
    Kind kind = Kind::Alerts;
    std::string origin;     // of the service, perhaps with a path: "https://api.weather.gov"
    std::string text;       // the ZIP code, or the search text
    bool isAbroad = false;  // `text` is the code of a city outside the United States
};

// Parses a feed request to the source of a scheme, such as "nws". The scheme itself means https;
// with "+http" appended it means http, which is allowed for this machine only. Returns nullopt for
// any other URL.
std::optional<Request> ParseRequest(std::string_view url, std::string_view scheme);

}  // namespace feed
