#include "alerts/VersionCheck.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "settings/ProgramState.h"
#include "tests/ScratchStore.h"

namespace alerts {
namespace {

// Answers the check's message boxes with No and counts them.
int boxesAnswered = 0;
void CALLBACK AnswerBox(HWND, UINT, UINT_PTR, DWORD) {
    const HWND box = FindWindowA("#32770", "Skyvane Alerts");
    if (!box || !IsWindowVisible(box)) return;
    ++boxesAnswered;
    EndDialog(box, IDNO);
}

// The check that the user did not start. Its downloader is a program that does nothing; the test
// writes the files.
class SilentVersionCheck : public tests::ScratchStore {};

TEST_F(SilentVersionCheck, AnnouncesAVersionOnceAndNoFailures) {
    const std::string folder = settings::State().dataFolder;
    settings::State().programFolder = folder;
    CopyFileA("c:\\windows\\system32\\hostname.exe", (folder + "\\dl.exe").c_str(), FALSE);
    settings::WriteSetting(settings::kVersion, "1.0.2");
    const UINT_PTR timer = SetTimer(nullptr, 0, 20, AnswerBox);
    for (const auto& [versionFile, boxes] :
         {std::pair{"1.0.2", 0}, {"", 0}, {"1.0.3", 1}, {"1.0.3", 0}, {"1.0.4", 1}}) {
        win::WriteFileAtomically(folder + "\\chet.sk", "0");
        win::WriteFileAtomically(folder + "\\che.sk", versionFile);
        boxesAnswered = 0;
        CheckVersion(nullptr, "No");
        EXPECT_EQ(boxesAnswered, boxes) << versionFile;
    }
    KillTimer(nullptr, timer);
    EXPECT_EQ(settings::ReadSetting(settings::kCheckVersion), "1.0.4");
}

}  // namespace
}  // namespace alerts
