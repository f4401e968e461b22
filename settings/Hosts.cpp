#include "settings/Hosts.h"

#include "settings/IniOpenSave.h"

namespace settings {
namespace {

std::string Host(const char* key, const char* whenEmpty) {
    return ValueOr(ReadSetting(kHosts, key), whenEmpty);
}

}  // namespace

std::string FeedHost() {
    return Host("Feed", "nws://api.weather.gov/");
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

std::string VisitMakerAction() {
    return std::string(kVisitAction).append(MakerHost());
}

}  // namespace settings
