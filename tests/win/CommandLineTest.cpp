#include "win/CommandLine.h"

#include <gtest/gtest.h>

namespace win {
namespace {

TEST(CommandLine, ReturnsTheTextAfterTheProgramName) {
    const struct {
        const char* line;
        const char* argument;
    } cases[] = {
        {R"(C:\Program Files\Sky Vane\DL.EXE u|d|s)", "u|d|s"},
        {R"("C:\Program Files\Sky\dl.exe" "u a|d|s")", "u a|d|s"},
        {R"(C:\my dl.exe files\dl.exe u|d|s)", "u|d|s"},
        {R"(C:\old-dl.exe x\dl.exe u|d|s)", "u|d|s"},
        {R"(dl.exe http://h/dl.exe x|d|s)", "http://h/dl.exe x|d|s"},
        {R"(dl u|d|s)", "u|d|s"},
        {R"(C:/Sky/dl.exe   u|d|s  )", "u|d|s"},
        {R"(C:\Program Files\dl.exe)", ""},
        {R"("C:\dl.exe)", ""},
        {R"("C:\dl.exe" ")", "\""},
        {"", ""},
    };
    for (const auto& c : cases) EXPECT_EQ(ArgumentText(c.line, "dl.exe"), c.argument) << c.line;
}

}  // namespace
}  // namespace win
