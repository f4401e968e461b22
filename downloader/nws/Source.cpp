#include "downloader/nws/Source.h"

#include <utility>

#include "downloader/feed/AlertMemoryFile.h"
#include "downloader/feed/FeedXml.h"
#include "downloader/feed/LiveSource.h"
#include "downloader/http/Fetch.h"
#include "downloader/http/ResponseCache.h"
#include "downloader/http/Retry.h"
#include "downloader/http/StatusCodes.h"
#include "downloader/nws/Endpoints.h"
#include "downloader/nws/Alerts.h"
#include "downloader/nws/Stations.h"
#include "downloader/nws/Zones.h"

namespace nws {
namespace {

using http::Failure;
using http::Response;

constexpr int kNotFound = 404;  // HTTP; for a point: it is not in the United States
constexpr char kGeoJson[] = "application/geo+json";
constexpr std::int64_t kDay = 86'400;  // seconds

// The body of the entry for a place that the service does not cover.
constexpr char kUnknownPlace[] =
    "The National Weather Service covers the United States and its territories, by ZIP code. This "
    "place is unknown to it, so no alerts can be shown for the place. Remove the station on the "
    "Stations page of the options, and search for a place nearby.";

Response FetchJson(const std::string& address) {
    return http::FetchWithRetry(address, {kGeoJson, http::BodyForm::JsonObject});
}

// Reads the zones of a point. Returns kSuccess or the status of a failure. The service itself says
// that it does not cover a point (at sea, across a border): that point has no zones. A page from
// another server with the same status is a failure.
int FetchPointZones(Response point, ZoneIds& zones) {
    constexpr std::string_view kProblem = "application/problem+json";
    if (point.status == kNotFound && point.contentType.starts_with(kProblem)) return http::kSuccess;
    if (point.status != http::kSuccess) return point.status;
    const auto found = ReadPointZones(std::move(point.body));
    if (!found) return http::kUnusableAnswer;
    AddZones(zones, *found);
    return http::kSuccess;
}

// Finds the zones of a place, by its centre and by the places at its reach, and how long they may
// be cached. Returns kSuccess or the status of a failure. The zones are empty for a place that the
// service does not cover.
int FetchZones(const std::string& origin, const feed::Place& place, PlaceZones& zones,
               std::int64_t& seconds) {
    constexpr std::int64_t kWeek = 7 * kDay;
    constexpr std::int64_t kHour = 3600;
    const int status = FetchPointZones(FetchJson(PointAddress(origin, place)), zones.own);
    if (status != http::kSuccess) return status;
    seconds = kWeek;
    zones.all = zones.own;
    for (const feed::Place& edge : EdgesOf(place)) {
        Response point = http::Fetch(PointAddress(origin, edge), {kGeoJson});
        // Without an edge the place still has alerts; the edges are retried soon.
        if (FetchPointZones(std::move(point), zones.all) != http::kSuccess) seconds = kHour;
    }
    if (zones.own.empty()) zones.own = zones.all;
    return http::kSuccess;
}

int FindZones(const std::string& origin, const feed::Place& place, PlaceZones& zones) {
    const std::string key = "zones of " + PointAddress(origin, place);
    if (const auto cached = http::FindCached(key, place.code)) {
        const auto known = UnpackZones(cached->text);
        if (known) {
            zones = *known;
            return http::kSuccess;
        }
    }
    std::int64_t seconds = 0;
    const int status = FetchZones(origin, place, zones, seconds);
    if (status == http::kSuccess && !zones.all.empty())
        http::StoreCached(key, seconds, PackZones(zones), place.code);
    return status;
}

// Builds the alert document from the service's answer, which is parsed in place.
std::optional<std::string> BuildFrom(http::TimedAnswer& answer, const AlertPlace& place) {
    feed::AlertMemory memory = feed::LoadAlertMemory();
    auto document = BuildAlertDocument(std::move(answer.body), place, memory, answer.now);
    if (document) feed::SaveAlertMemory(std::move(memory), answer.now);
    return document;
}

// Returns the alert document for a place from the alerts for its zones. All stations that lie in
// them share the cached answer.
Response FetchZoneAlerts(const std::string& address, const AlertPlace& place) {
    constexpr std::int64_t kLongest = 600;  // seconds, whatever max-age the service states
    if (auto cached = http::FindCachedAnswer(address))
        if (auto document = BuildFrom(*cached, place)) return feed::Success(std::move(document));
    Response response = FetchJson(address);
    if (response.status != http::kSuccess) return Failure(response.status);
    http::TimedAnswer answer{std::move(response.body),
                             http::ServerTime(response).value_or(http::SecondsNow())};
    const std::int64_t seconds = http::SecondsToCache(response.cacheControl, kLongest);
    http::TimedAnswer kept;
    if (seconds > 0 && answer.body.size() < http::kLongestCached) kept = answer;
    auto document = BuildFrom(answer, place);
    // An answer is only cached once it has been read completely.
    if (document && !kept.body.empty()) http::StoreCachedAnswer(address, seconds, kept);
    return feed::Success(std::move(document));
}

Response FetchAlerts(const std::string& origin, const feed::Place& place) {
    PlaceZones zones;
    const int status = FindZones(origin, place, zones);
    if (status != http::kSuccess) return Failure(status);
    if (zones.all.empty())
        return feed::Success(feed::BuildNotCoveredDocument(place.code, kUnknownPlace));
    const AlertPlace alertPlace{feed::PositionOf(place), place.reach, zones.own};
    return FetchZoneAlerts(AlertsAddress(origin, zones.all), alertPlace);
}

Response FetchStations(const std::string& origin, const feed::Place& place) {
    const std::string address = PointAddress(origin, place);
    // The document names the place, and several places can share a point.
    const std::string key = address + " " + place.code;
    if (auto cached = http::FindCached(key)) return feed::Success(std::move(cached->text));
    Response point = FetchJson(address);
    if (point.status == kNotFound) return Failure(http::kOutsideUnitedStates);
    if (point.status != http::kSuccess) return point;
    const auto stationsAddress = StationsAddress(origin, std::move(point.body));
    if (!stationsAddress) return Failure(http::kUnusableAnswer);
    Response stations = FetchJson(*stationsAddress);
    if (stations.status != http::kSuccess) return stations;
    auto document = BuildStationDocument(std::move(stations.body), place);
    if (document && !http::ForbidsCaching(point.cacheControl + "," + stations.cacheControl))
        http::StoreCached(key, kDay, *document);
    return feed::Success(std::move(document));
}

}  // namespace

http::Response Fetch(const std::string& url) {
    return feed::AnswerRequest(url, {"nws", feed::Scope::UnitedStates, kUnknownPlace,
                                     feed::FindZipCode, FetchAlerts, FetchStations});
}

}  // namespace nws
