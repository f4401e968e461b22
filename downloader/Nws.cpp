#include "downloader/Nws.h"

#include <windows.h>

#include "downloader/AnswerCache.h"
#include "downloader/CacheRules.h"
#include "downloader/HttpFetch.h"
#include "downloader/MappedFile.h"
#include "downloader/NwsAlertsRules.h"
#include "downloader/NwsPlacesRules.h"
#include "downloader/NwsRequestRules.h"
#include "downloader/NwsStationsRules.h"
#include "downloader/StatusCodes.h"
#include "win/Files.h"
#include "win/CodePage.h"

namespace downloader {
namespace {

constexpr std::size_t kMostLocations = 50;
constexpr DWORD kPauseBeforeRetry = 2000;        // milliseconds
constexpr int kNoSuchPoint = 404;                // HTTP: the point is not in the United States
constexpr std::int64_t kDay = 86400;             // seconds
constexpr std::int64_t kLongestForAlerts = 600;  // seconds, whatever the server states

Reply Failure(int status) {
    return {status, {}, {}};
}

// Asks the Weather Service; a failure that may pass is tried once more.
Reply Ask(const std::string& address) {
    constexpr char kAccept[] = "application/geo+json";
    Reply reply = HttpGet(address, kAccept);
    if (!IsWorthRetrying(reply.status, reply.body)) return reply;
    Sleep(kPauseBeforeRetry);
    return HttpGet(address, kAccept);
}

// The answer as a document; `xml` is nothing where it makes no sense.
Reply Document(std::optional<std::string> xml) {
    if (!xml) return Failure(kUnusableAnswer);
    return {kSuccess, *std::move(xml), {}};
}

Reply FetchAlerts(const NwsRequest& request, const Place& place) {
    const std::string address = AlertsAddress(request.origin, place);
    if (auto kept = FindAnswer(address)) return Document(std::move(kept));
    Reply answer = Ask(address);
    if (answer.status != kSuccess) return answer;
    const std::int64_t seconds = SecondsToKeep(answer.cacheControl, kLongestForAlerts);
    Reply reply = Document(AlertsXml(answer.body, SecondsNow()));
    if (reply.status == kSuccess) KeepAnswer(address, seconds, reply.body);
    return reply;
}

Reply FetchStations(const NwsRequest& request, const Place& place) {
    const std::string address = PointAddress(request.origin, place);
    // Places can share a point, and the document names the place.
    const std::string key = address + " " + std::string(place.zipCode);
    if (auto kept = FindAnswer(key)) return Document(std::move(kept));
    Reply point = Ask(address);
    if (point.status == kNoSuchPoint) return Failure(kOutsideUnitedStates);
    if (point.status != kSuccess) return point;
    const auto path = StationsPath(point.body);
    if (!path) return Failure(kUnusableAnswer);
    Reply stations = Ask(request.origin + *path);
    if (stations.status != kSuccess) return stations;
    Reply reply = Document(StationsXml(stations.body, place));
    const bool mayKeep = !ForbidsKeeping(point.cacheControl + "," + stations.cacheControl);
    if (reply.status == kSuccess && mayKeep) KeepAnswer(key, kDay, reply.body);
    return reply;
}

}  // namespace

Reply FetchFromNws(const std::string& url) {
    const auto request = ParseNwsRequest(win::ToUtf8(win::ToWide(url)));
    if (!request) return Failure(kUnknownRequest);
    if (request->isAbroad) return Failure(kOutsideUnitedStates);
    const MappedFile file(win::ExecutableFolder() + "\\places.dat");
    const auto gazetteer = OpenGazetteer(file.Bytes());
    if (!gazetteer) return Failure(kNoGazetteer);
    if (request->kind == NwsRequest::Kind::locations)
        return Document(LocationsXml(FindPlaces(*gazetteer, request->text, kMostLocations)));
    const auto place = FindZipCode(*gazetteer, request->text);
    if (!place) return Failure(kUnknownZipCode);
    return request->kind == NwsRequest::Kind::alerts ? FetchAlerts(*request, *place)
                                                     : FetchStations(*request, *place);
}

}  // namespace downloader
