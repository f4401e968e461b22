#include "tray/AlertMenu.h"

#include <gtest/gtest.h>

namespace tray {
namespace {

TEST(AlertMenu, CutsCaptionsAtFortyCharacters) {
    EXPECT_EQ(AlertCaption("Flood Watch", "Here"), "Flood Watch (Here)");
    EXPECT_EQ(AlertCaption("", ""), " ()");
    const std::string fits = std::string(34, 'x');
    EXPECT_EQ(AlertCaption(fits, "abc"), fits + " (abc)");
    EXPECT_EQ(AlertCaption(fits, "abcd"), fits + " (abcd...)");
    std::string wide;
    for (int i = 0; i < 40; ++i) wide += "ź";
    EXPECT_EQ(AlertCaption(wide, "y"), wide + "...)");
}

TEST(AlertMenu, SkipsCaptionsThatOccurInEarlierOnes) {
    std::string seen;
    EXPECT_TRUE(AddCaption(seen, "Flood Watch (A)"));
    EXPECT_FALSE(AddCaption(seen, "Flood Watch (A)"));
    EXPECT_FALSE(AddCaption(seen, "Watch (A)"));  // a part of the first one
    EXPECT_TRUE(AddCaption(seen, "Flood Watch (B)"));
}

TEST(AlertMenu, EscapesAmpersandsAndControlCharacters) {
    EXPECT_EQ(MenuText("Wind & Hail\tx\r\n"), "Wind && Hail x  ");
}

TEST(AlertMenu, FindsAlertsByWholeNumberOrLowWord) {
    std::string map;
    AddToAlertMap(map, 0x00010F23, "66044");
    AddToAlertMap(map, 0x0002AF23, "odd)code,7(x");
    AddToAlertMap(map, 412345, "last");
    struct Case {
        std::uint32_t chosen;
        std::optional<std::string> code;
    };
    const Case cases[] = {{0x00010F23, "66044"}, {0x0F23, "66044"},    {0x0002AF23, "odd"},
                          {0xAF23, "odd"},       {412345, "last"},     {412345 & 0xFFFF, "last"},
                          {12345, std::nullopt}, {8000, std::nullopt}, {45, std::nullopt}};
    for (const Case& c : cases) EXPECT_EQ(FindInAlertMap(map, c.chosen), c.code) << c.chosen;
    EXPECT_EQ(FindInAlertMap("", 0), std::nullopt);
}

TEST(AlertMenu, AvoidsTheIdentifiersOfOtherItems) {
    for (const std::uint32_t number : {101u, 8000u, 8003u, 9999u, 0x00010065u, 0x00021F42u})
        EXPECT_FALSE(IsUsableAlertIdentifier(number, 3, {})) << number;
    for (const std::uint32_t number : {0x00012711u, 0x00010200u, 0x00011F44u})
        EXPECT_TRUE(IsUsableAlertIdentifier(number, 3, {})) << number;
    EXPECT_FALSE(IsUsableAlertIdentifier(0x00012711, 3, {0x00052711}));
    EXPECT_FALSE(IsUsableAlertIdentifier(0x00012711, 10000, {}));  // a station
}

}  // namespace
}  // namespace tray
