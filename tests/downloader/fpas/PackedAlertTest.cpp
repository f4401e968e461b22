#include "downloader/fpas/PackedAlert.h"

#include <gtest/gtest.h>

#include "tests/downloader/fpas/Documents.h"

namespace fpas {
namespace {

TEST(PackAlert, RoundTrips) {
    const auto alert = ReadAlert(Document(
        {}, Block({{"area", "<polygon>1,2 3,4 5,6</polygon><circle>1,2 3</circle>"}}) +
                Block({{"headline", "Łódź"}, {"category", "Met</category><category>Geo"}})));
    ASSERT_TRUE(alert);
    const std::string packed = PackAlert(*alert);
    const auto unpacked = UnpackAlert(packed);
    ASSERT_TRUE(unpacked);
    EXPECT_EQ(unpacked->infos[0].areas[0].polygons, std::vector<std::string>{"1,2 3,4 5,6"});
    EXPECT_EQ(unpacked->infos[1].headline, "Łódź");
    EXPECT_EQ(unpacked->infos[1].categories, "Met Geo");
    EXPECT_EQ(PackAlert(*unpacked), packed);
    for (std::size_t length = 0; length < packed.size(); ++length)
        EXPECT_FALSE(UnpackAlert(packed.substr(0, length))) << length;
    EXPECT_FALSE(UnpackAlert(packed + "0;"));
    EXPECT_FALSE(UnpackAlert("skyvane-cap-1;1;\xFF" + packed.substr(17)));
}

}  // namespace
}  // namespace fpas
