#include "downloader/feed/Json.h"
#include "downloader/feed/Request.h"
#include "downloader/http/Retry.h"
#include "downloader/nws/Endpoints.h"
#include "downloader/nws/Alerts.h"
#include "downloader/nws/Stations.h"
#include "tests/fuzz/Elements.h"
#include "win/Text.h"
#include "win/XmlGuard.h"

namespace {

// Requires a document that the program can read: valid UTF-8 in which no text escapes its element.
void CheckDocument(const std::optional<std::string>& xml, std::string_view end) {
    if (!xml) return;
    fuzz::Require(win::IsUtf8(*xml) && win::IsSafeXml(*xml) && xml->ends_with(end));
    for (const char c : *xml)
        fuzz::Require(static_cast<unsigned char>(c) >= 0x20 || c == '\n' || c == '\t');
    fuzz::Require(xml->find("<aws:weather") == xml->rfind("<aws:weather"));
}

}  // namespace

// Whatever the Weather Service, the feed request or the gazetteer contain, every document is valid,
// and an incomplete list is rejected.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const std::string json(text);
    constexpr std::int64_t kNow = 1784138400;
    feed::AlertMemory memory(text);
    const auto alerts = nws::BuildAlertDocument(json, {{39, -95.2}, 10, {"KSC045"}}, memory, kNow);
    fuzz::Require(feed::AlertMemory(memory.Text(kNow)).Text(kNow) == memory.Text(kNow));
    CheckDocument(alerts, "</aws:alerts></aws:weather>\n");
    fuzz::Require(!alerts || feed::ReadJson(json, [](const feed::JsonItem&) {}));
    CheckDocument(nws::BuildStationDocument(json, {"66044", "Lawrence", "Kansas", 390000, -952000}),
                  "</aws:weather>\n");
    if (const auto address = nws::StationsAddress("https://h", json))
        fuzz::Require(address->starts_with("https://h/"));
    if (const auto request = feed::ParseRequest(text, "nws"))
        fuzz::Require(request->origin.find_first_of("@?\\ ", 8) == std::string::npos);
    if (const auto zones = nws::ReadPointZones(json))
        fuzz::Require(nws::AlertsAddress("h", *zones).find_first_of(" &/", 30) ==
                      std::string::npos);
    http::ParseHttpDate(text);
    return 0;
}
