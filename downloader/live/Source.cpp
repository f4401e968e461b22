#include "downloader/live/Source.h"

#include "downloader/feed/LocalAnswers.h"
#include "downloader/fpas/Source.h"
#include "downloader/http/StatusCodes.h"
#include "downloader/live/Route.h"
#include "downloader/nws/Source.h"
#include "win/CodePage.h"

namespace live {

http::Response Fetch(const std::string& url) {
    const auto route = ParseUrl(win::FromWide(win::ToWide(url)));
    if (!route) return http::Failure(http::kUnknownRequest);
    if (route->kind == Kind::Locations)
        return feed::AnswerLocations(route->searchText, feed::Scope::World);
    return route->kind == Kind::World ? fpas::Fetch(route->worldUrl) : nws::Fetch(route->usUrl);
}

}  // namespace live
