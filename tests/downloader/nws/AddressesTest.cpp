#include "downloader/nws/Addresses.h"

#include <gtest/gtest.h>

#include "tests/downloader/nws/Answers.h"

namespace nws {
namespace {

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
