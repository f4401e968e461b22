#include "stations/StationLine.h"

#include <gtest/gtest.h>

namespace stations {
namespace {

const std::string blanks(100, ' ');

TEST(StationLineRules, TakesALineApart) {
    struct Case {
        std::string line;
        std::string display;
        std::string code;
    };
    const Case cases[] = {
        {"Lawrence, KS (Airport)" + blanks + "KLWC***66044***38.9***-95.2",
         "Lawrence, KS (Airport)", "66044"},
        {blanks + "id***1", "", "1"},
        {"x" + blanks, "x", ""},
        {"x" + blanks + "id", "x", ""},
        {"no run at all***7***", "no run at all***7***", ""},
        {"x" + std::string(99, ' ') + "id***1", "x" + std::string(99, ' ') + "id***1", ""},
        {"x" + blanks + "  id***  2", "x", "  2"},  // the run is the first hundred
    };
    for (const Case& c : cases) {
        EXPECT_EQ(DisplayText(c.line), c.display) << c.line;
        EXPECT_EQ(HiddenField(c.line, kCode), c.code) << c.line;
    }
    EXPECT_EQ(MakeStationLine("Paris (Orly)", MakeHiddenText("LFPO", "064321", "48.7", "2.4")),
              "Paris (Orly)" + blanks + "LFPO***064321***48.7***2.4");
}

TEST(StationLineRules, FindsTheNameOfACode) {
    const std::vector<std::string> lines{"66044", "A" + blanks + "1***66044***", "",
                                         "B" + blanks + "2***66044***"};
    EXPECT_EQ(DisplayTextOfCode(lines, "66044"), "A");
    EXPECT_EQ(DisplayTextOfCode(lines, "6604"), "");
}

TEST(StationLineRules, ReadsAndWritesTheFile) {
    const std::vector<std::string> lines{"a", " ", "b"};
    EXPECT_EQ(ReadStationLines("a\r\n\r\n \n\nb"), lines);
    EXPECT_EQ(WriteStationLines({"a", "", "b"}), "a\r\nb\r\n");
    EXPECT_TRUE(ReadStationLines("").empty());
}

TEST(StationLineRules, GrowsTheArrayByTen) {
    const std::pair<std::size_t, std::size_t> sizes[] = {{0, 11}, {9, 11}, {10, 21}, {25, 31}};
    for (const auto& [count, size] : sizes) EXPECT_EQ(GrownArraySize(count), size) << count;
}

}  // namespace
}  // namespace stations
