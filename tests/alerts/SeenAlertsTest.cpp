#include "alerts/SeenAlerts.h"

#include <gtest/gtest.h>

namespace alerts {
namespace {

std::string Bars(std::string text) {
    for (std::size_t i; (i = text.find('|')) != std::string::npos;) text.replace(i, 1, kBar);
    return text;
}

TEST(SeenAlerts, FindsWholeIdentifiersOnly) {
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
        EXPECT_EQ(IsSeen(Bars(c.seen), Bars(c.identifier)), c.isSeen)
            << c.seen << " / " << c.identifier;
}

// The fast search must have the result of searching the text for each identifier.
TEST(SeenAlerts, AddsUnseenIdentifiersAsIfOneByOne) {
    const std::vector<std::string> identifiers{"1", "", "a|b", "b", "1", "", "|", "2", "a|b", "a"};
    for (const char* before : {"", "1", "1|2", "a||c", "|", "b|a"}) {
        std::string expected = Bars(before);
        int count = 0;
        std::vector<std::string> feed;
        for (const std::string& identifier : identifiers) {
            feed.push_back(Bars(identifier));
            if (IsSeen(expected, feed.back())) continue;
            AddSeen(expected, feed.back());
            ++count;
        }
        std::string seen = Bars(before);
        EXPECT_EQ(AddUnseen(seen, feed), count) << before;
        EXPECT_EQ(seen, expected) << before;
    }
}

TEST(SeenAlerts, TrimsTheSeenListByCharacters) {
    const std::string fits(500, 'x');
    EXPECT_EQ(TrimSeen(fits), fits);
    EXPECT_EQ(TrimSeen(std::string(249, 'a') + std::string(252, 'b')), std::string(252, 'b'));
    std::string bars;
    for (int i = 0; i < 501; ++i) bars += kBar;
    EXPECT_EQ(TrimSeen(bars).size(), 252 * kBar.size());
}

TEST(SeenAlerts, FitsTheNewestWholeIdentifiers) {
    for (const auto& [seen, longest, fitting] : {std::tuple{"a|bc|def", 8, "a|bc|def"},
                                                 {"a|bc|def", 7, "bc|def"},
                                                 {"a|bc|def", 6, "bc|def"},
                                                 {"a|bc|def", 5, "def"},
                                                 {"a|bc|def", 2, ""},
                                                 {"abcd", 3, ""},
                                                 {"Ł|ŁŁ", 2, "ŁŁ"}})
        EXPECT_EQ(FitSeen(Bars(seen), longest), Bars(fitting)) << seen << longest;
    EXPECT_EQ(FitSeen("a", std::string::npos), "a");
}

}  // namespace
}  // namespace alerts
