#include "downloader/live/Source.h"

#include "downloader/feed/LiveSource.h"
#include "downloader/fpas/Source.h"
#include "downloader/http/StatusCodes.h"
#include "downloader/live/Route.h"
#include "downloader/nws/Source.h"

namespace live {

http::Response Fetch(const std::string& url) {
    const auto route = ParseUrl(url);
    if (!route) return http::Failure(http::kUnknownRequest);
    if (route->kind == Kind::Locations)
        return feed::AnswerLocations(route->searchText, feed::Scope::World);
    return route->kind == Kind::World ? fpas::Fetch(route->worldUrl) : nws::Fetch(route->usUrl);
}

}  // namespace live
