#include "alerts/VersionCheck.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "settings/ProgramState.h"
#include "tests/ScratchStore.h"

namespace alerts {
namespace {

// The box that the check shows, answered with No; how often.
int boxesAnswered = 0;
void CALLBACK AnswerBox(HWND, UINT, UINT_PTR, DWORD) {
    const HWND box = FindWindowA("#32770", "Skyvane Alerts");
    if (!box || !IsWindowVisible(box)) return;
    ++boxesAnswered;
    EndDialog(box, IDNO);
}

// The check that the user did not start. The downloader here does nothing: its files lie ready.
class SilentVersionCheck : public tests::ScratchStore {
  protected:
    void SetUp() override {
        ScratchStore::SetUp();
        settings::State().programFolder = settings::State().dataFolder;
        CopyFileA("c:\\windows\\system32\\hostname.exe",
                  (settings::State().programFolder + "\\dl.exe").c_str(), FALSE);
        settings::WriteSetting(settings::kVersion, "1.0.2");
        boxesAnswered = 0;
        timer_ = SetTimer(nullptr, 0, 20, AnswerBox);
    }
    void TearDown() override {
        KillTimer(nullptr, timer_);
        ScratchStore::TearDown();
    }
    // The boxes that a check shows which finds this version file, or none.
    static int Check(const char* versionFile) {
        const std::string& folder = settings::State().programFolder;
        win::ReplaceFileWhole(folder + "\\chet.sk", "0");
        if (versionFile) win::ReplaceFileWhole(folder + "\\che.sk", versionFile);
        boxesAnswered = 0;
        CheckVersion(nullptr, "No");
        return boxesAnswered;
    }

  private:
    UINT_PTR timer_ = 0;
};

TEST_F(SilentVersionCheck, AnnouncesAVersionOnce) {
    EXPECT_EQ(Check("1.0.3"), 1);
    EXPECT_EQ(Check("1.0.3"), 0);
    EXPECT_EQ(Check("1.0.3\r\n"), 0);
    EXPECT_EQ(Check("1.0.4"), 1);
    EXPECT_EQ(settings::ReadSetting(settings::kCheckVersion), "1.0.4");
    EXPECT_FALSE(win::FileExists(settings::State().programFolder + "\\che.sk"));
}

TEST_F(SilentVersionCheck, SaysNothingOfFailuresAndOldVersions) {
    for (const char* versionFile :
         {"1.0.2", "1.0.1", "", "<html>mended</html>", "111111111111111111111"})
        EXPECT_EQ(Check(versionFile), 0) << versionFile;
    win::DeleteFileQuietly(settings::State().programFolder + "\\che.sk");
    EXPECT_EQ(Check(nullptr), 0);
    EXPECT_EQ(settings::ReadSetting(settings::kCheckVersion), "");
}

}  // namespace
}  // namespace alerts
