#include "win/LateFunctions.h"

#include <gtest/gtest.h>

#include "win/Text.h"

namespace win {
namespace {

// Only a load that honours the program's manifest finds the version with visual styles.
TEST(LateFunctions, LoadTheCommonControlsOfTheManifest) {
    FindLateFunction("comctl32.dll", "ImageList_Create");
    char path[MAX_PATH] = {};
    GetModuleFileNameA(GetModuleHandleA("comctl32.dll"), path, sizeof path);
    EXPECT_TRUE(AsciiLower(path).find(
                    "\\winsxs\\x86_microsoft.windows.common-controls_6595b64144ccf1df_6.0.") !=
                std::string::npos)
        << path;
}

}  // namespace
}  // namespace win
