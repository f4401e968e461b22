#pragma once
#include <string>
#include <string_view>

// Every address that the program requests or opens. The hosts come from the section "Hosts" of the
// settings store, so that an administrator, a test or a demonstration can redirect them.
namespace settings {

// Returns the weather web site, without a final "/".
std::string WeatherHost();

// Returns the address of the feed, which ends in "/".
std::string FeedHost();

// Whether the feed is one of the downloader's own sources rather than a web server.
bool IsOwnSource();

// Whether the program shows the alerts and the weather of a place on a page of its own, because the
// feed is an own source and no weather web site is set, or because that site would not know a place
// abroad.
bool UsesLocalPage(std::string_view code);

// Returns what an own source is, for the user: who issues the alerts, and who passes them on.
std::string OwnSourceName();

// Returns the public page of the source of a place's alerts; empty if the feed has none for it.
std::string SourcePage(std::string_view code);

// Returns what that page is, for the user.
std::string SourcePageTitle(std::string_view code);

// Returns the source's forecast for a place; empty if the code is not a ZIP code.
std::string ForecastPage(std::string_view code);

// Returns the page of the source to open when the program's own page cannot be opened.
std::string SubstitutePage(std::string_view code);

// Returns the maker's web site, without a final "/"; also its home page.
std::string MakerHost();

// Returns the maker's e-mail address.
std::string MakerMail();

// Returns the link that opens a new message to an e-mail address.
std::string MailLink(std::string_view address);

// Return the feed requests. Codes are inserted unchanged; spaces in a name are escaped.
std::string AlertsRequest(std::string_view code);
std::string LocationsRequest(std::string_view name);
std::string StationsRequest(std::string_view code, bool byZipCode);

// Return pages of the weather web site: the alerts of a station, its weather, the national map
// (centred on the station's code unless that is empty or abroad), and the home page. Where
// UsesLocalPage, the national map is the source's page of all alerts, and the first two are not
// used.
std::string AlertPage(std::string_view code);
std::string StationPage(std::string_view code);
std::string NationalMapPage(std::string_view code);
std::string WeatherHomePage();

// Return pages and files of the maker's web site.
std::string SupportForumPage();
std::string BugReportPage();
std::string DonationPage();
std::string DownloadPage();
std::string VersionFile();

// Returns the click action that opens the maker's web site, as it is stored and shown.
std::string VisitMakerAction();

}  // namespace settings
