#include "options/OptionsRules.h"

#include <gtest/gtest.h>

namespace options {
namespace {

TEST(OptionsRules, StoresFilterWordsWithoutQuotes) {
    EXPECT_EQ(JoinFilterWords({}), "");
    EXPECT_EQ(JoinFilterWords({QuotedWord("a|b"), QuotedWord("say \"hi\""), QuotedWord("Łódź")}),
              "a|b|||||say hi|||||Łódź");
}

TEST(OptionsRules, AsksBeforeRemovingAStation) {
    EXPECT_EQ(RemoveQuestion("Here (A)"), "Are you sure you want to remove ''Here (A)''?");
}

}  // namespace
}  // namespace options
