#include "downloader/nws/Source.h"

#include <cstdlib>

#include "downloader/feed/AlertMemoryFile.h"
#include "downloader/feed/FeedXml.h"
#include "downloader/feed/GazetteerFile.h"
#include "downloader/feed/PlaceSearch.h"
#include "downloader/feed/Request.h"
#include "downloader/http/Fetch.h"
#include "downloader/http/ResponseCache.h"
#include "downloader/http/Retry.h"
#include "downloader/http/StatusCodes.h"
#include "downloader/nws/Endpoints.h"
#include "downloader/nws/Alerts.h"
#include "downloader/nws/Stations.h"
#include "downloader/nws/Zones.h"
#include "win/CodePage.h"
#include "win/Text.h"

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

// Returns a document as a response, or kUnusableAnswer for nullopt.
Response Success(std::optional<std::string> document) {
    if (!document) return Failure(http::kUnusableAnswer);
    Response response;
    response.status = http::kSuccess;
    response.body = *std::move(document);
    return response;
}

Response FetchJson(const std::string& address) {
    return http::FetchWithRetry(address, {kGeoJson, http::BodyForm::JsonObject});
}

// Reads the zones of a point. Returns kSuccess or the status of a failure. The service itself says
// that it does not cover a point (at sea, across a border): that point has no zones. A page of
// anybody else with the same status is a failure.
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
        // Without an edge the place still has alerts; it is asked again soon.
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

// An answer about alerts, and the service's time.
struct Alerts {
    int status = 0;
    std::string json;
    std::int64_t now = 0;
};

// Returns the alerts for the zones. All stations that lie in them share the cached answer.
Alerts FetchZoneAlerts(const std::string& address) {
    constexpr std::int64_t kLongest = 600;  // seconds, whatever max-age the service states
    if (auto cached = http::FindCached(address)) {
        std::string_view text = cached->text;
        const std::int64_t served =
            std::strtoll(std::string(win::TakeLine(text)).c_str(), nullptr, 10);
        return {http::kSuccess, std::string(text), served + cached->age};
    }
    Response answer = FetchJson(address);
    const std::int64_t now = http::ServerTime(answer).value_or(http::SecondsNow());
    if (answer.status == http::kSuccess)
        http::StoreCached(address, http::SecondsToCache(answer.cacheControl, kLongest),
                          win::Decimal(now) + "\n" + answer.body);
    return {answer.status, std::move(answer.body), now};
}

Response FetchAlerts(const std::string& origin, const feed::Place& place) {
    PlaceZones zones;
    const int status = FindZones(origin, place, zones);
    if (status != http::kSuccess) return Failure(status);
    if (zones.all.empty()) return Success(feed::BuildNotCoveredDocument(place.code, kUnknownPlace));
    Alerts alerts = FetchZoneAlerts(AlertsAddress(origin, zones.all));
    if (alerts.status != http::kSuccess) return Failure(alerts.status);
    constexpr double kDegree = 10'000;  // units of a gazetteer's coordinates
    const AlertPlace alertPlace{
        {place.latitude / kDegree, place.longitude / kDegree}, place.reach, zones.own};
    feed::AlertMemory memory = feed::LoadAlertMemory();
    auto document = BuildAlertDocument(std::move(alerts.json), alertPlace, memory, alerts.now);
    if (document) feed::SaveAlertMemory(std::move(memory), alerts.now);
    return Success(std::move(document));
}

Response FetchStations(const std::string& origin, const feed::Place& place) {
    const std::string address = PointAddress(origin, place);
    // The document names the place, and several places can share a point.
    const std::string key = address + " " + place.code;
    if (auto cached = http::FindCached(key)) return Success(std::move(cached->text));
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
    return Success(std::move(document));
}

}  // namespace

http::Response Fetch(const std::string& url) {
    using Kind = feed::Request::Kind;
    constexpr std::size_t kMostLocations = 50;
    const auto request = feed::ParseRequest(win::ToUtf8(win::ToWide(url)), "nws");
    if (!request) return Failure(http::kUnknownRequest);
    if (request->isAbroad)
        return request->kind == Kind::Alerts
                   ? Success(feed::BuildNotCoveredDocument(request->text, kUnknownPlace))
                   : Failure(http::kOutsideUnitedStates);
    const feed::GazetteerFile file(feed::GazetteerPath());
    const auto gazetteer = file.Open();
    if (!gazetteer) return Failure(http::kNoGazetteer);
    if (request->kind == Kind::Locations)
        return Success(feed::BuildLocationDocument(feed::FindPlaces(
            *gazetteer, request->text, kMostLocations, feed::Scope::UnitedStates)));
    const auto place = feed::FindZipCode(*gazetteer, request->text);
    if (!place)
        return request->kind == Kind::Alerts
                   ? Success(feed::BuildNotCoveredDocument(request->text, kUnknownPlace))
                   : Failure(http::kUnknownZipCode);
    return request->kind == Kind::Alerts ? FetchAlerts(request->origin, *place)
                                         : FetchStations(request->origin, *place);
}

}  // namespace nws
