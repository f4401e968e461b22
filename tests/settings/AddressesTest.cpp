#include "settings/Addresses.h"

#include "downloader/feed/Request.h"
#include "tests/ScratchStore.h"

namespace settings {
namespace {

class Addresses : public tests::ScratchStore {};

TEST_F(Addresses, TheDefaultFeedIsTheLiveSource) {
    EXPECT_TRUE(feed::ParseRequest(AlertsRequest("66044"), "nws"));
}

TEST_F(Addresses, AsksForTheStationsOfAZipCodeOrCity) {
    EXPECT_TRUE(StationsRequest("64321", true).ends_with("&requesttype=1&zipcode=64321"));
    EXPECT_TRUE(StationsRequest("64321", false).ends_with("&requesttype=1&CityCode=64321"));
}

TEST_F(Addresses, TheMapIsNotCentredWithoutACode) {
    EXPECT_TRUE(NationalMapPage("").ends_with("country_name=USA"));
    EXPECT_TRUE(NationalMapPage("66044").ends_with("country_name=USA&zip=66044"));
}

}  // namespace
}  // namespace settings
