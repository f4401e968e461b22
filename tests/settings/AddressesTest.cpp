#include "settings/Addresses.h"

#include "downloader/feed/Request.h"
#include "tests/ScratchStore.h"

namespace settings {
namespace {

class AddressesTest : public tests::ScratchStore {};

TEST_F(AddressesTest, ContainTheCode) {
    EXPECT_TRUE(feed::ParseRequest(AlertsRequest("66044"), "nws")) << "the default feed";
    EXPECT_TRUE(StationsRequest("64321", false).ends_with("&requesttype=1&CityCode=64321"));
    EXPECT_EQ(NationalMapPage("66044"), "https://alerts.weather.gov/");
}

}  // namespace
}  // namespace settings
