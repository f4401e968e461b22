#include "settings/Addresses.h"

#include <algorithm>

#include "settings/FeedContract.h"
#include "settings/IniOpenSave.h"
#include "settings/Product.h"
#include "win/Text.h"

namespace settings {
namespace {

constexpr char kWeatherZone[] = "z4172";

std::string Host(const char* key, const char* defaultHost) {
    return ReadSetting(Setting{kHosts, key}, defaultHost);
}

std::string FeedRequest(std::string_view query) {
    return FeedHost().append("GetXml.aspx?partnerid=7e3a90d4").append(query);
}

// The feed's address, taken apart.
struct FeedParts {
    std::string scheme;     // in lower case; empty if the address has none
    std::string worldHost;  // the server for places outside the United States; may be empty
};

FeedParts SplitFeed() {
    const std::string feed = FeedHost();
    const std::size_t end = feed.find("://");
    if (end == std::string::npos) return {};
    FeedParts parts;
    parts.scheme = win::AsciiLower(feed.substr(0, end));
    const std::string hosts = feed.substr(end + 3, feed.find('/', end + 3) - end - 3);
    if (parts.scheme.starts_with("fpas")) parts.worldHost = hosts;
    const std::size_t comma = hosts.find(',');
    if (parts.scheme.starts_with("live") && comma != std::string::npos)
        parts.worldHost = hosts.substr(comma + 1);
    return parts;
}

bool IsZipCode(std::string_view code) {
    return code.size() == 5 && std::ranges::all_of(code, win::IsDigit);
}

}  // namespace

std::string FeedHost() {
    return Host("Feed", "live://api.weather.gov,alerts.kde.org/");
}

bool IsOwnSource() {
    const std::string scheme = SplitFeed().scheme;
    return !scheme.empty() && scheme != "http" && scheme != "https";
}

bool UsesLocalPage(std::string_view code) {
    return IsOwnSource() && (IsAbroad(code) || Host("Weather", "").empty());
}

std::string OwnSourceName() {
    constexpr char kUnitedStates[] = "US National Weather Service, over the Internet";
    const FeedParts feed = SplitFeed();
    if (feed.scheme == "drill") return "a drill, whose alert is made up as a test";
    if (feed.worldHost.empty()) return kUnitedStates;
    std::string world =
        "the national authorities that each alert names, collected by the public alert server " +
        feed.worldHost + ", which volunteers run and which is still under development";
    if (feed.scheme.starts_with("fpas")) return world;
    return std::string(kUnitedStates) + "; outside the United States, " + world;
}

std::string SourcePage(std::string_view code) {
    if (!IsAbroad(code)) return "https://alerts.weather.gov/";
    const std::string host = SplitFeed().worldHost;
    return host.empty() ? host : "https://" + host + "/";
}

std::string SourcePageTitle(std::string_view code) {
    return IsAbroad(code) ? "Public alert server " + SplitFeed().worldHost
                          : "All active alerts in the United States";
}

std::string ForecastPage(std::string_view code) {
    if (!IsZipCode(code)) return {};
    return std::string("https://forecast.weather.gov/zipcity.php?inputstring=").append(code);
}

std::string SubstitutePage(std::string_view code) {
    const std::string page = IsAbroad(code) ? SourcePage(code) : ForecastPage(code);
    return page.empty() ? "https://www.weather.gov/" : page;
}

std::string WeatherHost() {
    return Host("Weather", "https://www.weatherbug.com");
}

std::string MakerHost() {
    return Host("Maker", "https://www.quillmark.example");
}

std::string MakerMail() {
    return Host("MakerMail", "support@quillmark.example");
}

std::string MailLink(std::string_view address) {
    return std::string("mailto:").append(address);
}

std::string AlertsRequest(std::string_view code) {
    return FeedRequest("&requesttype=6&ZipCode=").append(code);
}

std::string LocationsRequest(std::string_view name) {
    return FeedRequest("&RequestType=501&SearchString=").append(win::ReplaceAll(name, " ", "%20"));
}

std::string StationsRequest(std::string_view code, bool byZipCode) {
    return FeedRequest(byZipCode ? "&requesttype=1&zipcode=" : "&requesttype=1&CityCode=")
        .append(code);
}

std::string AlertPage(std::string_view code) {
    return WeatherHost()
        .append("/Common/SearchResults.html?zcode=")
        .append(kWeatherZone)
        .append("&nav_section=45&lang_id=en-us&is_search=true&loc=")
        .append(code);
}

std::string StationPage(std::string_view code) {
    return WeatherHost()
        .append("/Common/SearchResults.html?loc=")
        .append(code)
        .append("&is_search=true&nav_section=1&loc_country=WORLD&zcode=")
        .append(kWeatherZone);
}

std::string NationalMapPage(std::string_view code) {
    if (UsesLocalPage({})) return SourcePage({});
    std::string page = WeatherHost()
                           .append("/severe-weather/national-alert-map.html?zcode=")
                           .append(kWeatherZone)
                           .append("&country=US&country_name=USA");
    if (!code.empty() && !IsAbroad(code)) page.append("&zip=").append(code);
    return page;
}

std::string WeatherHomePage() {
    return WeatherHost().append("?zcode=").append(kWeatherZone);
}

std::string SupportForumPage() {
    return MakerHost() + "/Forum/index.php?c=24";
}

std::string BugReportPage() {
    return MakerHost() + "/Bug-Report.asp?Application=Skyvane Alerts&Version=" SKYVANE_VERSION;
}

std::string DonationPage() {
    return MakerHost() + "/Donate.asp";
}

std::string DownloadPage() {
    return MakerHost() + "/Skyvane-Alerts.asp";
}

std::string VersionFile() {
    return MakerHost() + "/SVAlerts.txt";
}

std::string VisitMakerAction() {
    return std::string(kVisitAction).append(MakerHost());
}

}  // namespace settings
