#include "downloader/NwsRequestRules.h"

#include <gtest/gtest.h>

#include "downloader/CacheRules.h"

using namespace downloader;

namespace {

using Kind = NwsRequest::Kind;

TEST(ParseNwsRequest, ReadsTheFeedsRequests) {
    constexpr char kFeed[] = "nws://api.weather.gov/GetXml.aspx?partnerid=7e3a90d4&";
    struct Case {
        const char* query;
        Kind kind;
        const char* text;
        bool isAbroad;
    };
    const Case cases[] = {
        {"requesttype=6&ZipCode=66044", Kind::alerts, "66044", false},
        {"requesttype=6&ZipCode=02134-1000", Kind::alerts, "02134-1000", false},
        {"requesttype=6&ZipCode=059105", Kind::alerts, "059105", true},
        {"requesttype=1&zipcode=66044", Kind::stations, "66044", false},
        {"requesttype=1&CityCode=59105", Kind::stations, "59105", true},
        {"RequestType=501&SearchString=New%20York", Kind::locations, "New York", false},
        {"RequestType=501&SearchString=A&B=C%,%2", Kind::locations, "A&B=C%,%2", false},
        {"RequestType=501&SearchString=a%2Cb%zz", Kind::locations, "a,b%zz", false},
    };
    for (const Case& c : cases) {
        const auto request = ParseNwsRequest(std::string(kFeed) + c.query);
        ASSERT_TRUE(request) << c.query;
        EXPECT_EQ(request->origin, "https://api.weather.gov");
        EXPECT_EQ(request->kind, c.kind) << c.query;
        EXPECT_EQ(request->text, c.text) << c.query;
        EXPECT_EQ(request->isAbroad, c.isAbroad) << c.query;
    }
}

TEST(ParseNwsRequest, AsksOnlyThisMachineWithoutEncryption) {
    constexpr char kQuery[] = "/GetXml.aspx?requesttype=6&ZipCode=1";
    for (const auto& [host, origin] : {std::pair{"nws+http://127.0.0.1:80", "http://127.0.0.1:80"},
                                       {"NWS+HTTP://localhost", "http://localhost"},
                                       {"nws+http://[::1]:8", "http://[::1]:8"},
                                       {"nws://h:8", "https://h:8"},
                                       {"nws+http://h", ""},
                                       {"nws+http://127.0.0.1.example", ""},
                                       {"nws+http://127.0.0.1@h", ""},
                                       {"nws+http://127.0.0.1:8@h", ""},
                                       {"nws://", ""},
                                       {"nws://h\\x", ""},
                                       {"nws:h", ""},
                                       {"https://h", ""}}) {
        const auto request = ParseNwsRequest(std::string(host) + kQuery);
        EXPECT_EQ(request ? request->origin : "", origin) << host;
    }
    for (const char* rest :
         {"", "/", "/GetXml.aspx", "/GetXml.aspx?requesttype=6",
          "/GetXml.aspx?requesttype=7&ZipCode=1", "/Other?requesttype=6&ZipCode=1",
          "/GetXml.aspx?ZipCode=1&", "?requesttype=6&ZipCode=1"})
        EXPECT_FALSE(ParseNwsRequest(std::string("nws://h") + rest)) << rest;
}

TEST(IsWorthRetrying, KnowsFailuresThatPass) {
    for (const int status : {500, 503, 429, 403})
        EXPECT_TRUE(IsWorthRetrying(status, "")) << status;
    for (const int status : {200, 400, 404, 1007, 12029})
        EXPECT_FALSE(IsWorthRetrying(status, "")) << status;
    EXPECT_TRUE(IsWorthRetrying(200, "\r\n<HTML>Reference #18"));
    EXPECT_FALSE(IsWorthRetrying(200, "{}"));
}

TEST(Cache, KeepsAsLongAsTheServerAllows) {
    for (const auto& [header, seconds] : {std::pair{"public, max-age=30, s-maxage=30", 30},
                                          {"Max-Age = 5", 5},
                                          {"", 0},
                                          {"max-age=99999999999999999999", 600},
                                          {"max-age=-5", 0},
                                          {"max-age=x", 0},
                                          {"no-store, max-age=30", 0},
                                          {"no-cache", 0},
                                          {"s-maxage=30", 0}})
        EXPECT_EQ(SecondsToKeep(header, 600), seconds) << header;
    const std::string entry = PackEntry("key", 1000, 30, "two\nlines\n");
    for (const auto& [now, key, expected] : {std::tuple{1000, "key", "two\nlines\n"},
                                             {1029, "key", "two\nlines\n"},
                                             {1030, "key", ""},
                                             {999, "key", ""},
                                             {1000, "other", ""},
                                             {1000, "ke", ""}})
        EXPECT_EQ(UnpackEntry(entry, key, now).value_or(""), expected) << now << key;
    for (std::size_t length = 0; length < entry.size(); ++length)
        EXPECT_FALSE(UnpackEntry(entry.substr(0, length), "key", 1000)) << length;
    EXPECT_FALSE(UnpackEntry("skyvane-answer-1\n-9223372036854775808\n1\n\nkey\n", "key", 1000));
}

}  // namespace
