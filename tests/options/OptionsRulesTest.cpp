#include "options/OptionsRules.h"

#include <gtest/gtest.h>

namespace options {
namespace {

const std::string blanks(100, ' ');

TEST(OptionsRules, StoresFilterWordsWithoutQuotes) {
    EXPECT_EQ(JoinFilterWords({}), "");
    EXPECT_EQ(JoinFilterWords({QuotedWord("a|b"), QuotedWord("say \"hi\""), QuotedWord("Łódź")}),
              "a|b|||||say hi|||||Łódź");
}

TEST(OptionsRules, EditsTheDisplayTextAlone) {
    const std::string line = "Old" + blanks + "id***66044***1***2";
    EXPECT_EQ(EditedStationLine(line, "  New one "), "New one" + blanks + "id***66044***1***2");
    EXPECT_EQ(EditedStationLine(line, ""), line);
    EXPECT_EQ(EditedStationLine(line, "x" + blanks + "a***b"), "x" + blanks + "id***66044***1***2");
    EXPECT_EQ(EditedStationLine("no fields", "New"), "New" + blanks);
    EXPECT_EQ(RemoveQuestion("Here (A)"), "Are you sure you want to remove ''Here (A)''?");
}

}  // namespace
}  // namespace options
