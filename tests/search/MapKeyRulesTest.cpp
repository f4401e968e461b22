#include "search/MapKeyRules.h"

#include <gtest/gtest.h>

namespace search {
namespace {

TEST(MapKeyRules, GivesTheMapWhatItUses) {
    struct Case {
        const char* keys;
        KeyTaker taker;
        std::initializer_list<unsigned> numbers;
    };
    for (const Case& c : {Case{"Tab, Enter, Space, Page Up to Home, arrows, + and - in both places",
                               KeyTaker::Map,
                               {0x09, 0x0D, 0x20, 0x21, 0x22, 0x23, 0x24, 0x25, 0x26, 0x27, 0x28,
                                0x6B, 0x6D, 0xBB, 0xBD}},
                          {"Esc", KeyTaker::Dialog, {0x1B}},
                          {"Backspace, Insert, Delete, letters, menu, F1, F5, F11, back, refresh",
                           KeyTaker::Nobody,
                           {0x08, 0x2D, 0x2E, 'A', 'P', 0x5D, 0x70, 0x74, 0x7A, 0xA6, 0xA8}}})
        for (const unsigned key : c.numbers)
            EXPECT_EQ(MapKeyTaker(key, false), c.taker) << c.keys << ": " << key;
    for (const unsigned key :
         {0x09u, 0x25u, 0x6Bu, 0xBDu, unsigned{'N'}, unsigned{'O'}, unsigned{'P'}})
        EXPECT_EQ(MapKeyTaker(key, true), KeyTaker::Nobody) << "Ctrl and " << key;
}

}  // namespace
}  // namespace search
