#include "alerts/StoredAlerts.h"

#include <gtest/gtest.h>

namespace alerts {
namespace {

TEST(StoredAlerts, KeepsTheNewestOfEachIdentifier) {
    const auto found = StoredAlerts({{"body2", "older"},
                                     {"id2", "A"},
                                     {"zipcode2", "66044"},
                                     {"body10", "newer"},
                                     {"id10", "A"},
                                     {"zipcode10", "66044"},
                                     {"body3", "another"},
                                     {"id3", "B"},
                                     {"zipcode3", "66044"},
                                     {"id11", "C"},
                                     {"body4", "x"},
                                     {"zipcode11", "66044"},
                                     {"zipcode4", "6604"},
                                     {"count", "11"}},
                                    "66044");
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[0].body + "," + found[1].body, "newer,another");
}

}  // namespace
}  // namespace alerts
