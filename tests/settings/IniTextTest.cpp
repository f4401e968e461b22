#include "settings/IniText.h"

#include <gtest/gtest.h>

namespace settings {
namespace {

TEST(IniText, ReadsTheFirstSectionOfAName) {
    const std::string text =
        "TITLE1=not mine\r\n[Misc]\r\nTITLE1=no\r\n[ALERTS]\r\n; note=x\r\n\r\nTITLE1 = a=b \r\n"
        "body1=\" quoted \"\nplain line\nID1='x'\r\n[Alerts]\r\nTITLE2=late\r\n";
    EXPECT_EQ(ReadIniSection(text, "Alerts"),
              (KeyValues{{"title1", "a=b"}, {"body1", " quoted "}, {"id1", "x"}}));
    EXPECT_EQ(ReadIniSection(text, "Options"), KeyValues{});
    EXPECT_EQ(ReadIniSection("[Alerts", "Alerts"), KeyValues{});
}

TEST(IniText, MergesValuesAndKeepsTheRest) {
    struct Case {
        const char* before;
        KeyValues values;
        const char* after;
    };
    const Case cases[] = {
        {"", {{"count", "1"}}, "[Alerts]\r\nCOUNT=1\r\n"},
        {"[Misc]\r\nRUNS=3", {{"count", "1"}}, "[Misc]\r\nRUNS=3\n[Alerts]\r\nCOUNT=1\r\n"},
        {"[Alerts]\r\nCount = 1\r\n;k\r\n\r\n[Misc]\r\nCOUNT=9\r\n",
         {{"title2", "b"}, {"count", "2"}},
         "[Alerts]\r\nCOUNT=2\r\n;k\r\nTITLE2=b\r\n\r\n[Misc]\r\nCOUNT=9\r\n"},
        {"[alerts]\r\n\r\nID1=a\r\n", {{"id1", "b"}, {"id1", "c"}}, "[alerts]\r\n\r\nID1=c\r\n"},
        {"[Alerts]\r\n\r\n\r\n", {{"a", "1"}}, "[Alerts]\r\nA=1\r\n\r\n\r\n"},
    };
    for (const Case& c : cases) EXPECT_EQ(MergeIniSection(c.before, "Alerts", c.values), c.after);
}

TEST(IniText, MergedValuesRoundTrip) {
    std::string longest;
    for (int i = 0; i < 749; ++i) longest += "Ł";
    for (const std::string& text :
         {"[A]\nK=" + longest + "x", MergeIniSection("", "A", {{"k", longest + " x"}})})
        EXPECT_EQ(ReadIniSection(text, "A"), (KeyValues{{"k", longest}}));
    for (const std::string value : {" spaces ", "\"quoted\"", "'quoted'", "\"", "a;b", "x=y", ""})
        EXPECT_EQ(ReadIniSection(MergeIniSection("", "A", {{"k", value}}), "A"),
                  (KeyValues{{"k", value}}));
}

}  // namespace
}  // namespace settings
