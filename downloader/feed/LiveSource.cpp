#include "downloader/feed/LiveSource.h"

#include "downloader/feed/FeedXml.h"
#include "downloader/feed/GazetteerFile.h"
#include "downloader/feed/Request.h"
#include "downloader/http/StatusCodes.h"

namespace feed {
namespace {

http::Response AnswerUnknownPlace(const Request& request, std::string_view reason) {
    if (request.kind == Request::Kind::Alerts)
        return Success(BuildNotCoveredDocument(request.text, reason));
    return http::Failure(request.isAbroad ? http::kOutsideUnitedStates : http::kUnknownZipCode);
}

}  // namespace

http::Response AnswerRequest(const std::string& url, const LiveSource& source) {
    const auto request = ParseRequest(url, source.scheme);
    if (!request) return http::Failure(http::kUnknownRequest);
    if (request->isAbroad && source.scope == Scope::UnitedStates)
        return AnswerUnknownPlace(*request, source.unknownPlace);
    if (request->kind == Request::Kind::Locations)
        return AnswerLocations(request->text, source.scope);
    const GazetteerFile file(GazetteerPath());
    const auto gazetteer = file.Open();
    if (!gazetteer) return http::Failure(http::kNoGazetteer);
    const auto place = source.findPlace(*gazetteer, request->text);
    if (!place) return AnswerUnknownPlace(*request, source.unknownPlace);
    return request->kind == Request::Kind::Alerts ? source.fetchAlerts(request->origin, *place)
                                                  : source.fetchStations(request->origin, *place);
}

http::Response AnswerLocations(const std::string& text, Scope scope) {
    constexpr std::size_t kMostLocations = 50;
    const GazetteerFile file(GazetteerPath());
    const auto gazetteer = file.Open();
    if (!gazetteer) return http::Failure(http::kNoGazetteer);
    return Success(BuildLocationDocument(FindPlaces(*gazetteer, text, kMostLocations, scope)));
}

http::Response Success(std::optional<std::string> document) {
    if (!document) return http::Failure(http::kUnusableAnswer);
    http::Response response;
    response.status = http::kSuccess;
    response.body = *std::move(document);
    return response;
}

}  // namespace feed
