#include "downloader/feed/Json.h"

#include <gtest/gtest.h>

namespace feed {
namespace {

bool IsValid(const std::string& json) {
    return ReadJson(json, [](const JsonItem&) {});
}

TEST(ReadJson, VisitsEveryItemWithItsPath) {
    using namespace std::literals;
    std::string items;
    const auto append = [&](const JsonItem& item) {
        items.append(item.path).append("=").append(item.text);
        if (item.kind == JsonItem::Kind::Number) items += std::to_string(item.number);
        items += ' ';
    };
    EXPECT_TRUE(
        ReadJson("\xEF\xBB\xBF {\"a\":[{\"b\":\"\\u0000\\ud83c\\udf2a\"},-74.0061]}", append));
    EXPECT_EQ(items, "= a= a[]= a[]/b=\0\xF0\x9F\x8C\xAA a[]= a[]=-74.006100 = "s);
}

TEST(ReadJson, AcceptsOneWholeDocumentInUtf8) {
    for (const char* valid : {"null", " [1e300, -0.5, 18446744073709551615] ", R"({"a":"\/\n"})"})
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
