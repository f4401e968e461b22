#pragma once
#include <optional>
#include <string>
#include <string_view>

// How a feed request is divided between the source for the United States and the one for the world.
namespace live {

enum class Kind { UnitedStates, World, Locations };

// A request, and the same request as each source expects it.
struct Route {
    Kind kind = Kind::UnitedStates;
    std::string usUrl;       // "nws://..."
    std::string worldUrl;    // "fpas://..."
    std::string searchText;  // of a request for locations
};

// Parses a request to "live://US-HOST,WORLD-HOST/". With "+http" appended to the scheme, the
// sources are contacted over http, which they allow for this machine only. Returns nullopt for any
// other URL.
std::optional<Route> ParseUrl(std::string_view url);

// Returns the document that takes the place of a failure, so that the failure of one source does
// not hide the alerts of the other. Returns nullopt for a request whose failures are reported.
std::optional<std::string> BuildUnavailableDocument(std::string_view url);

}  // namespace live
