#include "win/CodePage.h"

#include <windows.h>

#include "tests/ScratchStore.h"

namespace win {
namespace {

const bool isUtf8 = GetACP() == CP_UTF8;

class CodePageTest : public tests::ScratchStore {};

TEST_F(CodePageTest, ConvertsUtf8InEveryProcess) {
    EXPECT_NE(isUtf8, ExecutableFolder().ends_with("\\ansi"));
    const std::wstring wide = L"\u0141 \u05D9 \u5929 \U0001F32A \u00E9";
    EXPECT_EQ(ToWide("Ł י 天 🌪 é"), wide);
    EXPECT_EQ(FromWide(wide), "Ł י 天 🌪 é");
    EXPECT_EQ(FromWide(L"a\xD83C"), "a\xEF\xBF\xBD");
    EXPECT_EQ(ToWide(""), L"");
    // From a file in the code page of an older Windows version.
    EXPECT_EQ(ToWide("\xE9t\xE9"), isUtf8 ? L"\uFFFDt\uFFFD" : L"\u00E9t\u00E9");
    EXPECT_EQ(ToLower("ŁÓDŹ"), "łódź");
}

TEST_F(CodePageTest, MarksLostCharacters) {
    EXPECT_EQ(ToAnsi("Łódź, 天"), isUtf8 ? "Łódź, 天"
                                         : "?\xF3"
                                           "d?, ?");
    for (const char* text : {"", "Málaga", "Orly (80%)"}) EXPECT_EQ(FromAnsi(ToAnsi(text)), text);
}

TEST_F(CodePageTest, FindsAPathForTheCodePage) {
    const std::string path = settings::State().dataFolder + "\\天気.ico";
    ASSERT_TRUE(WriteFileAtomically(path, "x"));
    EXPECT_NE(GetFileAttributesA(ToAnsiPath(path).c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(FindFileNames(settings::State().dataFolder + "\\*.ico"),
              std::vector<std::string>{"天気.ico"});
}

}  // namespace
}  // namespace win
