#include "downloader/live/Route.h"

#include <gtest/gtest.h>

namespace live {
namespace {

TEST(ParseUrl, DividesTheRequests) {
    constexpr char kPage[] = "GetXml.aspx?partnerid=1&";
    for (const auto& [query, kind] :
         {std::pair{"requesttype=6&ZipCode=66044", Kind::UnitedStates},
          {"requesttype=6&ZipCode=059105", Kind::UnitedStates},
          {"requesttype=6&ZipCode=x", Kind::UnitedStates},
          {"requesttype=1&CityCode=59105", Kind::UnitedStates},
          {"requesttype=6&ZipCode=g2657896", Kind::World},
          {"requesttype=1&zipcode=g2657896", Kind::World},
          {"RequestType=501&SearchString=Paris,%20TX", Kind::Locations}}) {
        const std::string request = std::string(kPage) + query;
        const auto route = ParseUrl("Live://us.example:8,world.example/" + request);
        ASSERT_TRUE(route) << query;
        EXPECT_EQ(route->kind, kind) << query;
        EXPECT_EQ(route->usUrl, "nws://us.example:8/" + request);
        EXPECT_EQ(route->worldUrl, "fpas://world.example/" + request);
        EXPECT_EQ(route->searchText, kind == Kind::Locations ? "Paris, TX" : "");
    }
}

TEST(ParseUrl, RefusesOtherHosts) {
    for (const auto& [hosts, isAccepted] : {std::pair{"live+http://127.0.0.1:80,[::1]:81", true},
                                            {"live+http://127.0.0.1:80,h", false},
                                            {"live+http://h,127.0.0.1", false},
                                            {"live://a", false},
                                            {"live://,b", false},
                                            {"live://a,", false},
                                            {"live://a,b,c", false},
                                            {"alive://a,b", false},
                                            {"live:a,b", false},
                                            {"live,x://a", false},
                                            {"live", false}})
        EXPECT_EQ(
            ParseUrl(std::string(hosts) + "/GetXml.aspx?requesttype=6&ZipCode=g1").has_value(),
            isAccepted)
            << hosts;
}

TEST(BuildUnavailableDocument, HidesOnlyFailuresOfAlertsAbroad) {
    for (const auto& [query, isHidden] : {std::pair{"requesttype=6&ZipCode=g1", true},
                                          {"requesttype=6&ZipCode=66044", false},
                                          {"requesttype=1&zipcode=g1", false},
                                          {"RequestType=501&SearchString=g", false}}) {
        const std::string url = std::string("live://a,b/GetXml.aspx?") + query;
        EXPECT_EQ(BuildUnavailableDocument(url).has_value(), isHidden) << query;
    }
}

}  // namespace
}  // namespace live
