#include "search/MapKeyRules.h"

#include <initializer_list>

namespace search {

KeyTaker MapKeyTaker(unsigned key, bool withControl) {
    constexpr unsigned tab = 0x09, enter = 0x0D, escape = 0x1B, space = 0x20, downArrow = 0x28,
                       padPlus = 0x6B, padMinus = 0x6D, plus = 0xBB, minus = 0xBD;
    if (key == escape) return KeyTaker::Dialog;
    if (withControl) return KeyTaker::Nobody;
    // Space, Page Up, Page Down, End, Home and the arrows have numbers in a row. Those of the
    // number pad have the same ones.
    if (key >= space && key <= downArrow) return KeyTaker::Map;
    for (const unsigned used : {tab, enter, padPlus, padMinus, plus, minus})
        if (key == used) return KeyTaker::Map;
    return KeyTaker::Nobody;
}

}  // namespace search
