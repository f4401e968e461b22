#include "downloader/NwsAlertsRules.h"
#include "downloader/NwsJsonRules.h"
#include "downloader/NwsPlacesRules.h"
#include "downloader/NwsRequestRules.h"
#include "downloader/NwsStationsRules.h"
#include "tests/fuzz/Elements.h"
#include "win/Text.h"
#include "win/XmlGuard.h"

namespace {

// A document must be one that the program reads: UTF-8 that no text has broken out of.
void CheckDocument(const std::optional<std::string>& xml, std::string_view end) {
    if (!xml) return;
    fuzz::Require(win::IsUtf8(*xml) && win::IsSafeXml(*xml) && xml->ends_with(end));
    for (const char c : *xml)
        fuzz::Require(static_cast<unsigned char>(c) >= 0x20 || c == '\n' || c == '\t');
    fuzz::Require(xml->find("<aws:weather") == xml->rfind("<aws:weather"));
}

}  // namespace

// Whatever the Weather Service, the feed's request or the gazetteer hold, the documents are sound,
// and what is no whole list is refused.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto alerts = downloader::AlertsXml(text, 1784138400);
    CheckDocument(alerts, "</aws:alerts></aws:weather>\n");
    fuzz::Require(!alerts || downloader::ReadJson(text, [](const downloader::JsonItem&) {}));
    CheckDocument(downloader::StationsXml(text, {"66044", "Lawrence", "Kansas", 390000, -952000}),
                  "</aws:weather>\n");
    if (const auto path = downloader::StationsPath(text)) fuzz::Require(path->starts_with('/'));
    if (const auto request = downloader::ParseNwsRequest(text))
        fuzz::Require(request->origin.find_first_of("/@?\\ ", 8) == std::string::npos);
    if (const auto gazetteer = downloader::OpenGazetteer(text)) {
        fuzz::Require(downloader::FindPlaces(*gazetteer, "s", 50).size() <= 50);
        downloader::FindZipCode(*gazetteer, "66044");
    }
    downloader::FoldName(text);
    return 0;
}
