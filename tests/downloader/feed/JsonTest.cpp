#include "downloader/feed/Json.h"

#include <gtest/gtest.h>

namespace feed {
namespace {

bool IsValid(const std::string& json) {
    return ReadJson(json, [](const JsonItem&) {});
}

TEST(ReadJson, AcceptsOneWholeDocumentInUtf8) {
    for (const char* valid :
         {"\xEF\xBB\xBFnull", " [1e300, -0.5, 18446744073709551615] ", R"({"a":"\/\n"})"})
        EXPECT_TRUE(IsValid(valid)) << valid;
    for (const char* invalid : {"", "{}x", "[1,]", "[1", "{a:1}", "[1e999]", "[01]", "[\"\n\"]",
                                "NaN", R"(["\ud800"])", R"(["\udc00"])", R"(["\ud800\u0041"])",
                                R"({"\udc00":1})", "[\"\xC3\"]", "[\"\xED\xA0\x80\"]"})
        EXPECT_FALSE(IsValid(invalid)) << invalid;
    EXPECT_FALSE(IsValid(std::string("{}\0", 3)));
}

TEST(ReadJson, BoundsTheDepth) {
    EXPECT_TRUE(IsValid(std::string(64, '[') + std::string(64, ']')));
    EXPECT_FALSE(IsValid(std::string(65, '[') + std::string(65, ']')));
    EXPECT_FALSE(IsValid(std::string(1'000'000, '[')));
}

}  // namespace
}  // namespace feed
