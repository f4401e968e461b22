#include "alerts/AlertFeedRules.h"

#include <gtest/gtest.h>

namespace alerts {
namespace {

constexpr std::string_view bar = "\xC2\xA6";
std::string Bars(std::string text) {
    for (std::size_t i; (i = text.find('|')) != std::string::npos;) text.replace(i, 1, bar);
    return text;
}

TEST(AlertFeedRules, TidiesBodies) {
    EXPECT_EQ(TidyBody("a  b   c "), "a b c");
    EXPECT_EQ(TidyBody("   "), "");
    EXPECT_EQ(TidyBody("a\n  b"), "a\n b");
}

TEST(AlertFeedRules, KnowsASeenIdentifierOnlyWhole) {
    struct Case {
        std::string seen;
        std::string identifier;
        bool isSeen;
    };
    const Case cases[] = {{"", "1", false},         {"1", "1", true},         {"11", "1", false},
                          {"1|2|3", "1", true},     {"1|2|3", "2", true},     {"1|2|3", "3", true},
                          {"12|23|31", "1", false}, {"12|23|31", "3", false}, {"a|b", "a|b", true},
                          {"", "", true},           {"a", "", false},         {"a||b", "", true}};
    for (const Case& c : cases)
        EXPECT_EQ(IsSeen(Bars(c.seen), Bars(c.identifier), bar), c.isSeen)
            << c.seen << " / " << c.identifier;
}

// Whatever the identifiers look like, they come out as when each is searched for in the text.
TEST(AlertFeedRules, AddsUnseenIdentifiersAsIfOneByOne) {
    const std::vector<std::string> identifiers{"1", "", "a|b", "b", "1", "", "|", "2", "a|b", "a"};
    for (const char* before : {"", "1", "1|2", "a||c", "|", "b|a"}) {
        std::string expected = Bars(before);
        int count = 0;
        std::vector<std::string> asked;
        for (const std::string& identifier : identifiers) {
            asked.push_back(Bars(identifier));
            if (IsSeen(expected, asked.back(), bar)) continue;
            AddSeen(expected, asked.back(), bar);
            ++count;
        }
        std::string seen = Bars(before);
        EXPECT_EQ(AddUnseen(seen, asked, bar), count) << before;
        EXPECT_EQ(seen, expected) << before;
    }
}

TEST(AlertFeedRules, TrimsTheSeenListByCharacters) {
    const std::string five00(500, 'x');
    EXPECT_EQ(TrimSeen(five00), five00);
    EXPECT_EQ(TrimSeen(std::string(249, 'a') + std::string(252, 'b')), std::string(252, 'b'));
    std::string bars;
    for (int i = 0; i < 501; ++i) bars += bar;
    EXPECT_EQ(TrimSeen(bars).size(), 252 * bar.size());
}

TEST(AlertFeedRules, FitsTheNewestWholeIdentifiers) {
    for (const auto& [seen, longest, fitting] : {std::tuple{"a|bc|def", 8, "a|bc|def"},
                                                 {"a|bc|def", 7, "bc|def"},
                                                 {"a|bc|def", 6, "bc|def"},
                                                 {"a|bc|def", 5, "def"},
                                                 {"a|bc|def", 2, ""},
                                                 {"abcd", 3, ""},
                                                 {"Ł|ŁŁ", 2, "ŁŁ"}})
        EXPECT_EQ(FitSeen(Bars(seen), longest, bar), Bars(fitting)) << seen << longest;
    EXPECT_EQ(FitSeen("a", std::string::npos, bar), "a");
}

TEST(AlertFeedRules, JudgesStatusTexts) {
    for (const char* text : {"0", "0\r\n", "", "fine", "00"}) EXPECT_TRUE(IsSuccess(text)) << text;
    for (const char* text : {"1", "-1", "404", " 12002"}) EXPECT_FALSE(IsSuccess(text)) << text;
}

}  // namespace
}  // namespace alerts
