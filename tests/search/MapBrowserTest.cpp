#include "search/MapBrowser.h"

#include <gtest/gtest.h>

namespace search {
namespace {

TEST(MapBrowser, ReceivesOnlyMapKeys) {
    for (const WPARAM key : {VK_TAB, VK_RETURN, VK_SPACE, VK_PRIOR, VK_HOME, VK_LEFT, VK_DOWN,
                             VK_ADD, VK_SUBTRACT, VK_OEM_PLUS, VK_OEM_MINUS}) {
        EXPECT_EQ(FindKeyTarget(key, false), KeyTarget::Map) << key;
        EXPECT_EQ(FindKeyTarget(key, true), KeyTarget::None) << "Ctrl and " << key;
    }
    EXPECT_EQ(FindKeyTarget(VK_ESCAPE, false), KeyTarget::Dialog);
    for (const WPARAM key : {VK_BACK, VK_DELETE, int{'P'}, VK_APPS, VK_F1, VK_F5, VK_BROWSER_BACK})
        EXPECT_EQ(FindKeyTarget(key, false), KeyTarget::None) << key;
    EXPECT_EQ(FindKeyTarget('N', true), KeyTarget::None);
}

}  // namespace
}  // namespace search
