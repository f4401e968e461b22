#include "downloader/fpas/Source.h"

#include <windows.h>

#include <algorithm>
#include <functional>
#include <limits>
#include <utility>

#include "downloader/feed/AlertMemoryFile.h"
#include "downloader/feed/FeedXml.h"
#include "downloader/feed/IsoTime.h"
#include "downloader/feed/LiveSource.h"
#include "downloader/fpas/Alerts.h"
#include "downloader/fpas/DocumentCache.h"
#include "downloader/fpas/Endpoints.h"
#include "downloader/http/Fetch.h"
#include "downloader/http/ResponseCache.h"
#include "downloader/http/Retry.h"
#include "downloader/http/StatusCodes.h"
#include "win/CodePage.h"

namespace fpas {
namespace {

using http::Failure;
using http::Response;

// The body of the entry for a place that the gazetteer does not know.
constexpr char kUnknownPlace[] =
    "This place is unknown, so no alerts can be shown for it. Remove the station on the Stations "
    "page of the options, and search for the place again.";

// The list of the alerts for a place, and the server's time.
struct List {
    int status = http::kSuccess;
    std::vector<std::string> identifiers;
    std::int64_t now = 0;
};

List FetchList(const std::string& origin, const feed::Place& place) {
    constexpr std::size_t kLongestList = 256 * 1024;  // bytes
    constexpr std::int64_t kShortest = 60;            // seconds, whatever max-age the server states
    constexpr std::int64_t kLongest = 600;
    const std::string address = AreaAddress(origin, place);
    if (auto cached = http::FindCachedAnswer(address, place.code))
        if (auto identifiers = ReadIdentifiers(std::move(cached->body)))
            return {http::kSuccess, *std::move(identifiers), cached->now};
    const Response answer = http::FetchWithRetry(
        address, {"application/json", http::BodyForm::JsonArray, kLongestList, true});
    if (answer.status != http::kSuccess) return {answer.status, {}, 0};
    auto identifiers = ReadIdentifiers(answer.body);
    if (!identifiers) return {http::kUnusableAnswer, {}, 0};
    const std::int64_t now = http::ServerTime(answer).value_or(http::SecondsNow());
    const std::int64_t seconds =
        std::max(http::SecondsToCache(answer.cacheControl, kLongest), kShortest);
    http::StoreCachedAnswer(address, seconds, {answer.body, now}, place.code);
    return {http::kSuccess, *std::move(identifiers), now};
}

// Adds the document to the others unless it is gone. Returns kSuccess or the status of a failure.
int FetchDocument(const std::string& origin, const std::string& identifier,
                  std::vector<Document>& documents) {
    constexpr std::size_t kLongestDocument = 4 * 1024 * 1024;  // bytes
    constexpr int kNotFound = 404;
    constexpr int kGone = 410;
    const std::string address = DocumentAddress(origin, identifier);
    Response answer = http::FetchWithRetry(
        address,
        {"application/cap+xml, */*;q=0.5", http::BodyForm::NoWebPage, kLongestDocument, true});
    if (answer.status == kNotFound || answer.status == kGone) return http::kSuccess;
    if (answer.status != http::kSuccess && answer.status != http::kBodyTooLarge)
        return answer.status;
    if (!http::HasForm(answer.body, http::BodyForm::NoWebPage)) return http::kUnusableAnswer;
    documents.push_back({identifier, address, ReadAlert(std::move(answer.body))});
    StoreDocument(documents.back());
    return http::kSuccess;
}

// Returns when the document was sent. One that cannot be read counts as new, so that it is
// reported.
std::int64_t SentTime(const Document& document) {
    constexpr std::int64_t kNew = std::numeric_limits<std::int64_t>::max();
    return document.alert ? feed::ParseTime(document.alert->sent).value_or(kNew) : kNew;
}

// Keeps the documents that were sent last. The server's list states no times, so this needs the
// documents themselves: of a long list, each run of the program reads some more.
void KeepNewest(Answer& answer) {
    if (answer.documents.size() <= kMostDocuments) return;
    answer.hasMore = true;
    std::ranges::stable_sort(answer.documents, std::greater(), SentTime);
    answer.documents.resize(kMostDocuments);
}

// Collects the documents of the list. Returns kSuccess or the status of a failure.
int FetchDocuments(const std::string& origin, const std::vector<std::string>& identifiers,
                   Answer& answer) {
    std::vector<std::string> missing;
    for (const std::string& identifier : identifiers) {
        if (auto document = FindDocument(identifier, DocumentAddress(origin, identifier)))
            answer.documents.push_back(*std::move(document));
        else
            missing.push_back(identifier);
    }
    answer.hasMore = missing.size() > kMostDocuments;
    if (answer.hasMore) missing.resize(kMostDocuments);
    int status = http::kSuccess;
    for (const std::string& identifier : missing) {
        // What was read so far is in the cache, for the next run.
        status = http::HasTimeToRetry() ? FetchDocument(origin, identifier, answer.documents)
                                        : http::kOverallTimeout;
        if (status != http::kSuccess) break;
    }
    if (!missing.empty()) TrimDocuments();
    KeepNewest(answer);
    return status;
}

// Returns the name of the user's language, such as "de-CH".
std::string UserLanguage() {
    wchar_t name[LOCALE_NAME_MAX_LENGTH] = {};
    GetUserDefaultLocaleName(name, LOCALE_NAME_MAX_LENGTH);
    return win::FromWide(name);
}

Response FetchAlerts(const std::string& origin, const feed::Place& place) {
    const List list = FetchList(origin, place);
    if (list.status != http::kSuccess) return Failure(list.status);
    Answer answer;
    const int status = FetchDocuments(origin, list.identifiers, answer);
    if (status != http::kSuccess) return Failure(status);
    const AlertPlace alertPlace{place.code, feed::PositionOf(place)};
    feed::AlertMemory memory = feed::LoadAlertMemory();
    std::string document = BuildAlertDocument(answer, alertPlace, UserLanguage(), memory, list.now);
    feed::SaveAlertMemory(std::move(memory), list.now);
    return feed::Success(std::move(document));
}

// The place itself is its only station.
Response FetchStations(const std::string&, const feed::Place& place) {
    return feed::Success(feed::BuildPlaceStationDocument(place));
}

}  // namespace

http::Response Fetch(const std::string& url) {
    return feed::AnswerRequest(url, {"fpas", feed::Scope::Abroad, kUnknownPlace, feed::FindCity,
                                     FetchAlerts, FetchStations});
}

}  // namespace fpas
