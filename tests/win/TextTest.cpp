#include "win/Text.h"

#include <gtest/gtest.h>

namespace win {
namespace {

TEST(Text, CountsCodePointsInUtf8AndBytesElsewhere) {
    struct Case {
        std::string_view text;
        std::size_t count;
        std::string_view firstTwo;
        std::string_view afterTwo;
    };
    const Case cases[] = {
        {"", 0, "", ""},
        {"a", 1, "a", ""},
        {"abc", 3, "ab", "c"},
        {"Łódź", 4, "Łó", "dź"},
        {"\xF0\x9F\x8C\xAA!?", 3, "\xF0\x9F\x8C\xAA!", "?"},
        {"\xE9t\xE9", 3, "\xE9t", "\xE9"},        // a single-byte code page
        {"\xC0\xAF/x", 4, "\xC0\xAF", "/x"},      // overlong: invalid UTF-8
        {"\xED\xA0\x80", 3, "\xED\xA0", "\x80"},  // half of a surrogate pair
    };
    for (const Case& c : cases) {
        EXPECT_EQ(CountChars(c.text), c.count) << c.text;
        EXPECT_EQ(FirstChars(c.text, 2), c.firstTwo) << c.text;
        EXPECT_EQ(WithoutFirstChars(c.text, 2), c.afterTwo) << c.text;
    }
}

TEST(Text, FitsWholeCharactersIntoBytes) {
    EXPECT_EQ(FitBytes("abc", 3), "abc");
    EXPECT_EQ(FitBytes("abcd", 3), "abc");
    EXPECT_EQ(FitBytes("aŁb", 2), "a");
    EXPECT_EQ(FitBytes("aŁb", 3), "aŁ");
    EXPECT_EQ(FitBytes("\xE9\xE9", 1), "\xE9");
}

TEST(Text, ReadsTheLeadingNumber) {
    struct Case {
        std::string_view text;
        double number;
        int int16;
    };
    const Case cases[] = {{"", 0, 0},          {"0\r\n", 0, 0},        {"abc", 0, 0},
                          {"-1", -1, -1},      {"404 gone", 404, 404}, {" \n 7", 7, 7},
                          {"+3", 3, 3},        {"0.5", 0.5, 0},        {"32767", 32767, 32767},
                          {"32768", 32768, 0}, {"-32769", -32769, 0},  {"1.2.3", 1.2, 1}};
    for (const Case& c : cases) {
        EXPECT_DOUBLE_EQ(LeadingNumber(c.text), c.number) << c.text;
        EXPECT_EQ(LeadingInt16(c.text), c.int16) << c.text;
    }
    EXPECT_GT(LeadingNumber(std::string(400, '9')), 1e300);
}

TEST(Text, RecognizesNumericText) {
    for (const char* text : {"90210", " 02134 ", "-5", "1.5", ".5", "5."})
        EXPECT_TRUE(IsNumeric(text)) << text;
    for (const char* text : {"", " ", ".", "-", "1.2.3", "12a", "1 2", "New York"})
        EXPECT_FALSE(IsNumeric(text)) << text;
}

TEST(Text, SplitsJoinsAndReplaces) {
    using Pieces = std::vector<std::string>;
    EXPECT_EQ(Split("", "|||||"), Pieces{});
    EXPECT_EQ(Split("a|b|||||c", "|||||"), (Pieces{"a|b", "c"}));
    EXPECT_EQ(Split("|||||", "|||||"), (Pieces{"", ""}));
    EXPECT_EQ(Join({"a", "", "c"}, "***"), "a******c");
    EXPECT_EQ(ReplaceAll("5/3/2008 4:12:10 PM", " ", " @ "), "5/3/2008 @ 4:12:10 @ PM");
    EXPECT_EQ(ReplaceAll("aaa", "aa", "a"), "aa");
    EXPECT_EQ(Trim("  a b\t "), "a b\t");
}

TEST(Text, ParsesNumbersOfDigitsOnly) {
    EXPECT_EQ(ParseNumber("060", 60), 60);
    EXPECT_EQ(ParseNumber(std::string(18, '9'), INT64_MAX), 999'999'999'999'999'999);
    for (const char* text : {"", "61", "-1", "+1", "1 ", "1.0", "9223372036854775808"})
        EXPECT_EQ(ParseNumber(text, 60), std::nullopt) << text;
}

}  // namespace
}  // namespace win
