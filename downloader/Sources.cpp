#include "downloader/Sources.h"

#include "downloader/HttpFetch.h"
#include "downloader/Nws.h"
#include "downloader/StatusCodes.h"
#include "downloader/UrlRules.h"

namespace downloader {
namespace {

struct Source {
    const char* scheme;
    Reply (*fetch)(const std::string& url);
};

Reply FetchPage(const std::string& url) {
    return HttpGet(url, "*/*");
}

// A further kind of address is one more line here.
constexpr Source kSources[] = {
    {"http", FetchPage},
    {"https", FetchPage},
    {"nws", FetchFromNws},
    {"nws+http", FetchFromNws},
};

}  // namespace

Reply FetchFrom(const std::string& url) {
    const std::string scheme = SchemeOf(url);
    for (const Source& source : kSources)
        if (scheme == source.scheme) return source.fetch(url);
    return {kUnknownScheme, {}, {}};
}

}  // namespace downloader
