#include "settings/Addresses.h"

#include <algorithm>

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

// Returns the part of the feed's address before "://" in lower case; empty if there is none.
std::string FeedScheme() {
    const std::string feed = FeedHost();
    const std::size_t end = feed.find("://");
    return end == std::string::npos ? std::string() : win::AsciiLower(feed.substr(0, end));
}

bool IsZipCode(std::string_view code) {
    return code.size() == 5 && std::ranges::all_of(code, win::IsDigit);
}

}  // namespace

std::string FeedHost() {
    return Host("Feed", "nws://api.weather.gov/");
}

bool IsOwnSource() {
    const std::string scheme = FeedScheme();
    return !scheme.empty() && scheme != "http" && scheme != "https";
}

bool UsesLocalPage() {
    return IsOwnSource() && Host("Weather", "").empty();
}

std::string OwnSourceName() {
    return FeedScheme() == "drill" ? "a drill, whose alert is made up as a test"
                                   : "US National Weather Service, over the Internet";
}

std::string AllAlertsPage() {
    return "https://alerts.weather.gov/";
}

std::string ForecastPage(std::string_view code) {
    if (!IsZipCode(code)) return {};
    return std::string("https://forecast.weather.gov/zipcity.php?inputstring=").append(code);
}

std::string SubstitutePage(std::string_view code) {
    const std::string forecast = ForecastPage(code);
    return forecast.empty() ? "https://www.weather.gov/" : forecast;
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
    if (UsesLocalPage()) return AllAlertsPage();
    std::string page = WeatherHost()
                           .append("/severe-weather/national-alert-map.html?zcode=")
                           .append(kWeatherZone)
                           .append("&country=US&country_name=USA");
    if (!code.empty()) page.append("&zip=").append(code);
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
