#include "downloader/drill/Source.h"

#include <string_view>

#include "downloader/feed/AlertMemory.h"
#include "downloader/feed/FeedXml.h"
#include "downloader/feed/Request.h"
#include "downloader/http/StatusCodes.h"
#include "win/Text.h"

namespace drill {
namespace {

constexpr char kTitle[] = "TEST: Tornado Warning";
constexpr char kBody[] =
    "THIS IS ONLY A TEST. There is no tornado, and nothing needs to be done.\n\n"
    "Skyvane Alerts shows this made-up alert to rehearse a warning: the icon, the balloon, the "
    "menu and the sound announce it as they would announce a real one.\n\n"
    "To end the drill, choose Exit in the menu of the icon, and start the program as usual.\n\n"
    "Severity: Minor. Urgency: Unknown. Certainty: Unknown.";

std::string BuildAlertDocument(std::int64_t now) {
    constexpr std::int64_t kMinute = 60;  // seconds
    feed::AlertDocument document;
    document.Add(feed::ShortIdentity("drill " + win::Decimal(now / kMinute)), kTitle, kBody);
    return document.Finish();
}

}  // namespace

http::Response Answer(const std::string& url, std::int64_t now) {
    constexpr std::string_view kScheme = "drill://";
    // The address "drill://" names no host, but a request has one.
    const std::string request =
        std::string(kScheme).append("drill/").append(url, kScheme.size(), std::string::npos);
    const auto parsed = feed::ParseRequest(request, "drill");
    if (!parsed || parsed->kind != feed::Request::Kind::Alerts)
        return http::Failure(http::kOnlyDrillAlerts);
    http::Response response;
    response.status = http::kSuccess;
    response.body = BuildAlertDocument(now);
    return response;
}

}  // namespace drill
