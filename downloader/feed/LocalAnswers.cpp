#include "downloader/feed/LocalAnswers.h"

#include "downloader/feed/FeedXml.h"
#include "downloader/feed/GazetteerFile.h"
#include "downloader/http/StatusCodes.h"

namespace feed {

http::Response Success(std::optional<std::string> document) {
    if (!document) return http::Failure(http::kUnusableAnswer);
    http::Response response;
    response.status = http::kSuccess;
    response.body = *std::move(document);
    return response;
}

http::Response AnswerLocations(const std::string& text, Scope scope) {
    constexpr std::size_t kMostLocations = 50;
    const GazetteerFile file(GazetteerPath());
    const auto gazetteer = file.Open();
    if (!gazetteer) return http::Failure(http::kNoGazetteer);
    return Success(BuildLocationDocument(FindPlaces(*gazetteer, text, kMostLocations, scope)));
}

http::Response AnswerUnknownPlace(const Request& request, std::string_view reason) {
    if (request.kind == Request::Kind::Alerts)
        return Success(BuildNotCoveredDocument(request.text, reason));
    return http::Failure(request.isAbroad ? http::kOutsideUnitedStates : http::kUnknownZipCode);
}

}  // namespace feed
