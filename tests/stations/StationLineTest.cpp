#include "stations/StationLine.h"

#include <gtest/gtest.h>

namespace stations {
namespace {

const std::string spaces(100, ' ');

TEST(StationLine, ReadsDisplayTextAndCode) {
    struct Case {
        std::string line;
        std::string display;
        std::optional<std::string> code;
    };
    const Case cases[] = {
        {"Lawrence, KS (Airport)" + spaces + "KLWC***66044***38.9***-95.2",
         "Lawrence, KS (Airport)", "66044"},
        {spaces + "id***1", "", "1"},
        {"x" + spaces, "x", ""},
        {"x" + spaces + "id", "x", ""},
        {"no run at all***7***", "no run at all***7***", std::nullopt},
        {"x" + std::string(99, ' ') + "id***1", "x" + std::string(99, ' ') + "id***1",
         std::nullopt},
        {"x" + spaces + "  id***  2", "x", "  2"},  // only the first 100 spaces separate
    };
    for (const Case& c : cases) {
        EXPECT_EQ(DisplayText(c.line), c.display) << c.line;
        EXPECT_EQ(StationCode(c.line), c.code) << c.line;
    }
    EXPECT_EQ(MakeStationLine("Paris (Orly)", {"LFPO", "064321", "48.7", "2.4"}),
              "Paris (Orly)" + spaces + "LFPO***064321***48.7***2.4");
}

TEST(StationLine, RenamesTheDisplayTextOnly) {
    const std::string line = "Old" + spaces + "id***66044***1***2";
    EXPECT_EQ(RenameStation(line, "  New one "), "New one" + spaces + "id***66044***1***2");
    EXPECT_EQ(RenameStation(line, "x" + spaces + "a***b"), "x" + spaces + "id***66044***1***2");
    EXPECT_EQ(RenameStation("no fields", "New"), "New" + spaces);
}

TEST(StationLine, ReadsTheNationalMapsCode) {
    for (const char* noCode : {"", "Here", "a***b", "a******c"})
        EXPECT_EQ(CodeForNationalMap(noCode), "") << noCode;
    EXPECT_EQ(CodeForNationalMap("no run***66044***"), "66044");
}

TEST(StationLine, FindsTheDisplayTextOfACode) {
    const std::vector<std::string> lines{"66044", "A" + spaces + "1***66044***", "",
                                         "B" + spaces + "2***66044***"};
    EXPECT_EQ(DisplayTextOfCode(lines, "66044"), "A");
    EXPECT_EQ(DisplayTextOfCode(lines, "6604"), "");
}

TEST(StationLine, ReadsAndWritesFileText) {
    const std::vector<std::string> lines{"a", " ", "b"};
    EXPECT_EQ(ReadStationLines("a\r\n\r\n \n\nb"), lines);
    EXPECT_EQ(WriteStationLines({"a", "", "b"}), "a\r\nb\r\n");
    EXPECT_TRUE(ReadStationLines("").empty());
}

TEST(StationLine, ArrayGrowsByTen) {
    const std::pair<std::size_t, std::size_t> sizes[] = {{0, 11}, {9, 11}, {10, 21}, {25, 31}};
    for (const auto& [count, size] : sizes) EXPECT_EQ(GrownArraySize(count), size) << count;
}

}  // namespace
}  // namespace stations
