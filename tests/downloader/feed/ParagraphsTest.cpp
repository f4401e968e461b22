#include "downloader/feed/Paragraphs.h"

#include <gtest/gtest.h>

namespace {

TEST(AppendParagraphs, KeepsParagraphsListsAndTables) {
    const struct {
        const char* text;
        const char* joined;
    } kCases[] = {
        {"", ""},
        {" \n\r\n", ""},
        {"a flash\nflood warning\r\n  remains", "a flash flood warning remains"},
        {"\nfirst\n\n\n \nsecond\n", "first\n\nsecond"},
        {"* WHAT...Flooding\ncaused by rain.\n* WHERE...Topeka\n- Lawrence\n  and Perry",
         "* WHAT...Flooding caused by rain.\n* WHERE...Topeka\n- Lawrence and Perry"},
        {"life-\nthreatening and\n- on its own", "life-threatening and\n- on its own"},
        {"pre-\nand post-storm   a flash\nflood warning",
         "pre- and post-storm   a flash flood warning"},
        {"for a time --\nthen less", "for a time -- then less"},
        {"Stages:\nRiver    7 am   8 am\nKansas   12.1   13\nEnd of\nthe table",
         "Stages:\nRiver    7 am   8 am\nKansas   12.1   13\nEnd of the table"},
        {"one\n&&\ntwo\nthree", "one\n&&\ntwo three"},
    };
    for (const auto& c : kCases) {
        std::string body;
        feed::AppendParagraphs(body, c.text);
        EXPECT_EQ(body, c.joined) << c.text;
    }
}

}  // namespace
