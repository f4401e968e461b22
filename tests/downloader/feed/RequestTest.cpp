#include "downloader/feed/Request.h"

#include <gtest/gtest.h>

namespace feed {
namespace {

using Kind = Request::Kind;

TEST(ParseRequest, ReadsTheFeedsRequests) {
    for (const auto& [query, kind, text, isAbroad] :
         {std::tuple{"requesttype=6&ZipCode=66044", Kind::Alerts, "66044", false},
          {"requesttype=6&ZipCode=02134-1000", Kind::Alerts, "02134-1000", false},
          {"requesttype=6&ZipCode=059105", Kind::Alerts, "059105", true},
          {"requesttype=1&zipcode=66044", Kind::Stations, "66044", false},
          {"requesttype=1&CityCode=59105", Kind::Stations, "59105", true},
          {"RequestType=501&SearchString=A%20B&C=%,%2", Kind::Locations, "A B&C=%,%2", false},
          {"RequestType=501&SearchString=a%2Cb%zz", Kind::Locations, "a,b%zz", false}}) {
        const auto request = ParseRequest(
            std::string("nws://api.weather.gov/GetXml.aspx?partnerid=1&") + query, "nws");
        ASSERT_TRUE(request) << query;
        EXPECT_EQ(request->origin, "https://api.weather.gov");
        EXPECT_EQ(request->kind, kind) << query;
        EXPECT_EQ(request->text, text) << query;
        EXPECT_EQ(request->isAbroad, isAbroad) << query;
    }
}

TEST(ParseRequest, AllowsOnlyThisMachineWithoutEncryption) {
    constexpr char kQuery[] = "/GetXml.aspx?requesttype=6&ZipCode=1";
    for (const auto& [host, origin] : {std::pair{"nws+http://127.0.0.1:80", "http://127.0.0.1:80"},
                                       {"NWS+HTTP://localhost", "http://localhost"},
                                       {"nws+http://[::1]:8", "http://[::1]:8"},
                                       {"nws://h:8", "https://h:8"},
                                       {"nws+http://h", ""},
                                       {"nws+http://127.0.0.1.example", ""},
                                       {"nws+http://127.0.0.1:8@h", ""},
                                       {"nws://", ""},
                                       {"nws://h\\x", ""},
                                       {"nws:h", ""},
                                       {"https://h", ""}}) {
        const auto request = ParseRequest(std::string(host) + kQuery, "nws");
        EXPECT_EQ(request ? request->origin : "", origin) << host;
    }
    for (const char* rest :
         {"/", "/GetXml.aspx", "/GetXml.aspx?requesttype=6", "/GetXml.aspx?requesttype=7&ZipCode=1",
          "/Other?requesttype=6&ZipCode=1", "/GetXml.aspx?ZipCode=1&"})
        EXPECT_FALSE(ParseRequest(std::string("nws://h") + rest, "nws")) << rest;
}

}  // namespace
}  // namespace feed
