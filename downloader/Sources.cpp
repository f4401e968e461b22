#include "downloader/Sources.h"

#include "downloader/drill/Source.h"
#include "downloader/fpas/Source.h"
#include "downloader/http/Fetch.h"
#include "downloader/http/ResponseCache.h"
#include "downloader/http/StatusCodes.h"
#include "downloader/http/Url.h"
#include "downloader/live/Route.h"
#include "downloader/live/Source.h"
#include "downloader/nws/Source.h"

namespace downloader {
namespace {

struct Source {
    const char* scheme;
    http::Response (*fetch)(const std::string& url);
};

http::Response FetchPage(const std::string& url) {
    return http::Fetch(url, {});
}

http::Response FetchDrill(const std::string& url) {
    return drill::Answer(url, http::SecondsNow());
}

constexpr Source kSources[] = {
    {"drill", FetchDrill},      {"http", FetchPage},      {"https", FetchPage},
    {"nws", nws::Fetch},        {"nws+http", nws::Fetch}, {"fpas", fpas::Fetch},
    {"fpas+http", fpas::Fetch}, {"live", live::Fetch},    {"live+http", live::Fetch},
};

}  // namespace

std::string SubstituteForFailure(const std::string& url) {
    return live::BuildUnavailableDocument(url).value_or(std::string());
}

http::Response FetchFromSource(const std::string& url) {
    const std::string scheme = http::SchemeOf(url);
    for (const Source& source : kSources)
        if (scheme == source.scheme) return source.fetch(url);
    return http::Failure(http::kUnknownScheme);
}

}  // namespace downloader
