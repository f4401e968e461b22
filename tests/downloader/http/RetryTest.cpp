#include "downloader/http/Retry.h"

#include <gtest/gtest.h>

#include <vector>

using namespace http;

namespace {

Response Failed(int status, const char* body = "", const char* retryAfter = "") {
    Response response;
    response.status = status;
    response.body = body;
    response.retryAfter = retryAfter;
    response.date = "Tue, 15 Nov 1994 08:12:31 GMT";
    return response;
}

TEST(IsTransient, DistinguishesTransientFromPermanentFailures) {
    for (const int status :
         {500, 502, 503, 504, 429, 403, 12002, 12007, 12029, 12030, 12152, 1007, 1008})
        EXPECT_TRUE(IsTransient(Failed(status), BodyForm::JsonObject)) << status;
    for (const int status : {200, 400, 404, 407, 12175, 1015})
        EXPECT_FALSE(IsTransient(Failed(status), BodyForm::JsonObject)) << status;
    EXPECT_TRUE(IsTransient(Failed(0, "\r\n<HTML>Reference #18"), BodyForm::JsonObject));
    EXPECT_TRUE(IsTransient(Failed(0, "{\"features\":["), BodyForm::JsonObject));
    EXPECT_TRUE(IsTransient(Failed(0, "Please log in"), BodyForm::JsonObject));
    EXPECT_FALSE(IsTransient(Failed(0, "\xEF\xBB\xBF{}\n"), BodyForm::JsonObject));
    EXPECT_FALSE(IsTransient(Failed(404, "<html>"), BodyForm::JsonObject));
    EXPECT_FALSE(IsTransient(Failed(0, "[]"), BodyForm::JsonArray));
    EXPECT_TRUE(IsTransient(Failed(0, "{}"), BodyForm::JsonArray));
    EXPECT_FALSE(IsTransient(Failed(0, "<alert>"), BodyForm::NoWebPage));
    EXPECT_TRUE(IsTransient(Failed(0, "\n<!DOCTYPE HTML>"), BodyForm::NoWebPage));
    EXPECT_TRUE(IsTransient(Failed(0, "<Html lang='en'>"), BodyForm::NoWebPage));
}

TEST(WaitBeforeRetry, DoublesUntilTheLatestStart) {
    std::vector<std::int64_t> starts;
    std::int64_t now = 0;
    for (int failures = 1;; ++failures) {
        const auto wait = WaitBeforeRetry(Failed(12007), failures, now, 40'000, 0);
        if (!wait) break;
        starts.push_back(now += *wait);
    }
    EXPECT_EQ(starts, (std::vector<std::int64_t>{1000, 3000, 7000, 15000, 23000, 31000, 39000}));
    EXPECT_EQ(WaitBeforeRetry(Failed(503), 1, 0, 40'000, 255), 1249);
    const struct {
        const char* retryAfter;
        std::optional<std::int64_t> wait;
    } kCases[] = {
        {"5", 5000},
        {"0", 1000},
        {"39", std::nullopt},
        {"2000000000", std::nullopt},
        {"-1", 1000},
        {"soon", 1000},
        {"Tue, 15 Nov 1994 08:12:41 GMT", 10000},
        {"Tue, 15 Nov 1994 08:12:01 GMT", 1000},
        {"Tue, 15 Nov 1994 09:12:01 GMT", std::nullopt},
    };
    for (const auto& c : kCases)
        EXPECT_EQ(WaitBeforeRetry(Failed(429, "", c.retryAfter), 1, 2'000, 40'000, 0), c.wait)
            << c.retryAfter;
}

TEST(ServerTime, AddsTheAgeOfACachedAnswer) {
    const std::pair<const char*, std::int64_t> kCases[] = {
        {"", 784887151}, {"60", 784887211}, {"99999999", 784887151}, {"-1", 784887151}};
    for (const auto& [age, time] : kCases) {
        Response response = Failed(200);
        response.age = age;
        EXPECT_EQ(ServerTime(response), time) << age;
    }
    EXPECT_EQ(ServerTime(Response()), std::nullopt);
}

TEST(ParseHttpDate, ReadsOnlyTheFormatThatServersSend) {
    EXPECT_EQ(ParseHttpDate("Thu, 01 Jan 1970 00:00:00 GMT"), 0);
    EXPECT_EQ(ParseHttpDate("Thu, 29 Feb 2024 23:59:59 GMT"), 1709251199);
    for (const char* text :
         {"", "Thu, 30 Feb 2024 23:59:59 GMT", "Thu, 29 anF 2024 23:59:59 GMT",
          "Thu, 29 Feb 2024 24:00:00 GMT", "Thu, 29 Feb 2024 2-:59:59 GMT", "2024-02-29T23:59:59Z"})
        EXPECT_EQ(ParseHttpDate(text), std::nullopt) << text;
}

}  // namespace
