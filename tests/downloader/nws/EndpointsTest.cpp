#include "downloader/nws/Endpoints.h"

#include <gtest/gtest.h>

#include "tests/downloader/nws/Answers.h"

namespace nws {
namespace {

TEST(Addresses, NameThePlace) {
    const feed::Place place{"62701", "Springfield", "Illinois", 401234, -891000};
    EXPECT_EQ(AlertsAddress("https://h", {"ILC167", "ILZ051"}),
              "https://h/alerts/active?status=actual&zone=ILC167,ILZ051");
    EXPECT_EQ(PointAddress("https://h", place), "https://h/points/40.1234,-89.1");
}

TEST(StationsAddress, StaysOnTheOrigin) {
    EXPECT_EQ(StationsAddress("o", Recorded("point-nyc.json")), "o/gridpoints/OKX/33,35/stations");
    EXPECT_FALSE(StationsAddress("o", Recorded("problem-outside-us.json")));
    for (const auto& [url, address] : {std::pair{"https://elsewhere.example/x", "o/x"},
                                       {"https://h", ""},
                                       {"/x", ""},
                                       {"https://h/x?y", ""},
                                       {"https://h/x\\r\\nA: b", ""}}) {
        const std::string json =
            std::string(R"({"properties":{"observationStations":")") + url + "\"}}";
        EXPECT_EQ(StationsAddress("o", json).value_or(""), address) << url;
    }
}

}  // namespace
}  // namespace nws
