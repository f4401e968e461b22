#include "settings/Addresses.h"

#include "downloader/live/Route.h"
#include "settings/IniOpenSave.h"
#include "tests/ScratchStore.h"

namespace settings {
namespace {

class AddressesTest : public tests::ScratchStore {};

TEST_F(AddressesTest, ContainTheCode) {
    EXPECT_TRUE(live::ParseUrl(AlertsRequest("66044"))) << "the default feed";
    EXPECT_TRUE(StationsRequest("64321", false).ends_with("&requesttype=1&CityCode=64321"));
    EXPECT_EQ(NationalMapPage("66044"), "https://alerts.weather.gov/");
}

TEST_F(AddressesTest, DependOnTheSourceOfThePlace) {
    EXPECT_EQ(ForecastPage("66044"), "https://forecast.weather.gov/zipcity.php?inputstring=66044");
    EXPECT_EQ(ForecastPage("g2657896"), "");
    EXPECT_EQ(SubstitutePage("g2657896"), "https://alerts.kde.org/");
    for (const auto& [feed, us, world] : {std::tuple{"", true, "alerts.kde.org"},
                                          {"nws://h/", true, ""},
                                          {"fpas+http://127.0.0.1:8/", false, "127.0.0.1:8"},
                                          {"LIVE://a,b.example/", true, "b.example"}}) {
        WriteSetting({kHosts, "Feed"}, feed);
        const std::string name = OwnSourceName();
        const std::string server = std::string("server ") + world + ", which volunteers run";
        EXPECT_EQ(name.find("US National Weather Service") != std::string::npos, us) << feed;
        EXPECT_EQ(name.find(server) != std::string::npos, *world != 0) << name;
        EXPECT_EQ(SourcePage("g1"), *world ? std::string("https://") + world + "/" : "");
        EXPECT_EQ(SubstitutePage("g1"), *world ? SourcePage("g1") : "https://www.weather.gov/");
    }
    WriteSetting({kHosts, "Weather"}, "https://w");
    EXPECT_TRUE(UsesLocalPage("g1") && !UsesLocalPage("66044"));
    EXPECT_EQ(NationalMapPage("g1") + "&zip=66044", NationalMapPage("66044"));
}

}  // namespace
}  // namespace settings
