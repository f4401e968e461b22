#pragma once
#include <string>

// Every outside address of the program, read through the settings store, section "Hosts", so that
// an administrator, a test or a demonstration can point it elsewhere.
namespace settings {

// What stands before "GetXml.aspx" in a feed request; ends in "/".
std::string FeedHost();

// The WeatherBug web site, without a "/" at the end.
std::string WeatherHost();

// The maker's web site, without a "/" at the end.
std::string MakerHost();

// The maker's e-mail address.
std::string MakerMail();

// The click action that opens the maker's web site, as stored and shown.
std::string VisitMakerAction();

// Feed requests carry this partner; web pages of the weather site carry kWeatherZone.
inline constexpr char kFeedRequest[] = "GetXml.aspx?partnerid=7e3a90d4";
inline constexpr char kWeatherZone[] = "z4172";

}  // namespace settings
