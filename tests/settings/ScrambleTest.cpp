#include "settings/Scramble.h"

#include <gtest/gtest.h>

namespace settings {
namespace {

TEST(Scramble, ShiftsEachCharacterByItsPosition) {
    EXPECT_EQ(Scramble("aaa"), "bcd");
    EXPECT_EQ(Scramble(""), "");
    EXPECT_EQ(Unscramble("bcd"), "aaa");
    EXPECT_EQ(Scramble("zzzzzz"), "{|}~\x7F€");
}

TEST(Scramble, RoundTrips) {
    for (const std::string text : {"user", "!!!! \" secret ", "p@ss w0rd|\"'", "~~~~~~~~", "Müller",
                                   "zzzzzzzzzzzz", "5 € to Žižek"}) {
        const auto scrambled = Scramble(text);
        ASSERT_TRUE(scrambled) << text;
        EXPECT_EQ(Unscramble(*scrambled), text);
    }
}

TEST(Scramble, RejectsCharactersWithoutACode) {
    EXPECT_FALSE(Scramble("\xC3\xBF"));  // the last code, which cannot be raised
    EXPECT_FALSE(Scramble("Łukasz"));    // no code up to 255
    EXPECT_FALSE(Scramble(std::string(140, 'z')));
    EXPECT_TRUE(Scramble(std::string(133, 'z')));
    EXPECT_FALSE(Unscramble("\x01"));
}

}  // namespace
}  // namespace settings
