#include "downloader/live/Route.h"

#include "downloader/feed/AlertMemory.h"
#include "downloader/feed/FeedXml.h"
#include "downloader/feed/Request.h"
#include "settings/FeedContract.h"
#include "win/Text.h"

namespace live {
namespace {

using RequestKind = feed::Request::Kind;

std::string_view HostOf(std::string_view origin) {
    return origin.substr(origin.find("://") + 3);
}

}  // namespace

std::optional<Route> ParseUrl(std::string_view url) {
    constexpr std::string_view kScheme = "live";
    const std::size_t hosts = url.find("://");
    const std::size_t comma = url.find(',');
    const std::size_t path = url.find('/', hosts == std::string_view::npos ? hosts : hosts + 3);
    if (path == std::string_view::npos || comma > path || comma < hosts) return std::nullopt;
    const std::string scheme = win::AsciiLower(url.substr(0, hosts));
    if (!scheme.starts_with(kScheme)) return std::nullopt;
    const std::string rest = scheme.substr(kScheme.size()) + "://";
    Route route;
    route.usUrl = "nws" + rest;
    route.usUrl.append(url.substr(hosts + 3, comma - hosts - 3)).append(url.substr(path));
    route.worldUrl = "fpas" + rest;
    route.worldUrl.append(url.substr(comma + 1));
    auto request = feed::ParseRequest(route.usUrl, "nws");
    if (!request || !feed::ParseRequest(route.worldUrl, "fpas")) return std::nullopt;
    if (request->kind == RequestKind::Locations) {
        route.kind = Kind::Locations;
        route.searchText = std::move(request->text);
    } else if (settings::IsAbroad(request->text)) {
        route.kind = Kind::World;
    }
    return route;
}

std::optional<std::string> BuildUnavailableDocument(std::string_view url) {
    const auto route = ParseUrl(url);
    if (!route || route->kind != Kind::World) return std::nullopt;
    const auto request = feed::ParseRequest(route->worldUrl, "fpas");
    if (request->kind != RequestKind::Alerts) return std::nullopt;
    const std::string host(HostOf(request->origin));
    feed::AlertDocument document;
    document.Add(feed::ShortIdentity("unavailable " + host), settings::kUnavailableTitle,
                 "The server " + host +
                     " did not answer, or its answer could not be read. There may be alerts for "
                     "this place. They are requested again at the next retrieval.");
    return document.Finish();
}

}  // namespace live
