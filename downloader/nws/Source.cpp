#include "downloader/nws/Source.h"

#include "downloader/feed/FeedXml.h"
#include "downloader/feed/GazetteerFile.h"
#include "downloader/feed/Request.h"
#include "downloader/http/Fetch.h"
#include "downloader/http/ResponseCache.h"
#include "downloader/http/StatusCodes.h"
#include "downloader/nws/Addresses.h"
#include "downloader/nws/Alerts.h"
#include "downloader/nws/Stations.h"
#include "win/CodePage.h"

namespace nws {
namespace {

constexpr int kNotFound = 404;  // HTTP; for a point: it is not in the United States

http::Response Failure(int status) {
    return {status, {}, {}};
}

// Returns a document as a response, or kUnusableAnswer for nullopt.
http::Response Success(std::optional<std::string> document) {
    if (!document) return Failure(http::kUnusableAnswer);
    return {http::kSuccess, *std::move(document), {}};
}

http::Response FetchJson(const std::string& address) {
    return http::FetchWithRetry(address, "application/geo+json");
}

http::Response FetchAlerts(const std::string& origin, const feed::Place& place) {
    constexpr std::int64_t kLongest = 600;  // seconds, whatever max-age the service states
    const std::string address = AlertsAddress(origin, place);
    if (auto cached = http::FindCached(address)) return Success(std::move(cached));
    http::Response answer = FetchJson(address);
    if (answer.status != http::kSuccess) return answer;
    const std::int64_t seconds = http::SecondsToCache(answer.cacheControl, kLongest);
    auto document = BuildAlertDocument(std::move(answer.body), http::SecondsNow());
    if (document) http::StoreCached(address, seconds, *document);
    return Success(std::move(document));
}

http::Response FetchStations(const std::string& origin, const feed::Place& place) {
    constexpr std::int64_t kDay = 86400;  // seconds
    const std::string address = PointAddress(origin, place);
    // The document names the place, and several places can share a point.
    const std::string key = address + " " + std::string(place.zipCode);
    if (auto cached = http::FindCached(key)) return Success(std::move(cached));
    http::Response point = FetchJson(address);
    if (point.status == kNotFound) return Failure(http::kOutsideUnitedStates);
    if (point.status != http::kSuccess) return point;
    const auto stationsAddress = StationsAddress(origin, std::move(point.body));
    if (!stationsAddress) return Failure(http::kUnusableAnswer);
    http::Response stations = FetchJson(*stationsAddress);
    if (stations.status != http::kSuccess) return stations;
    auto document = BuildStationDocument(std::move(stations.body), place);
    if (document && !http::ForbidsCaching(point.cacheControl + "," + stations.cacheControl))
        http::StoreCached(key, kDay, *document);
    return Success(std::move(document));
}

}  // namespace

http::Response Fetch(const std::string& url) {
    using Kind = feed::Request::Kind;
    constexpr std::size_t kMostLocations = 50;
    const auto request = feed::ParseRequest(win::ToUtf8(win::ToWide(url)), "nws");
    if (!request) return Failure(http::kUnknownRequest);
    if (request->isAbroad) return Failure(http::kOutsideUnitedStates);
    const feed::GazetteerFile file(feed::GazetteerPath());
    const auto gazetteer = file.Open();
    if (!gazetteer) return Failure(http::kNoGazetteer);
    if (request->kind == Kind::Locations)
        return Success(feed::BuildLocationDocument(
            feed::FindPlaces(*gazetteer, request->text, kMostLocations)));
    const auto place = feed::FindZipCode(*gazetteer, request->text);
    if (!place) return Failure(http::kUnknownZipCode);
    return request->kind == Kind::Alerts ? FetchAlerts(request->origin, *place)
                                         : FetchStations(request->origin, *place);
}

}  // namespace nws
