#include <gtest/gtest.h>
#include <windows.h>

#include <functional>
#include <map>

#include "options/frmOptions.h"
#include "options/resource.h"
#include "tests/Handles.h"
#include "tests/ScratchStore.h"
#include "tray/MinuteClock.h"
#include "tray/modTrayIcon.h"
#include "win/Choice.h"
#include "win/Dialog.h"
#include "win/Text.h"

namespace options {
namespace {

using namespace settings;

using Act = std::function<void(HWND dialog)>;
Act act;

// Finds a control on whichever page it stands.
HWND Find(HWND dialog, int control) {
    if (const HWND found = GetDlgItem(dialog, control)) return found;
    for (HWND page = GetWindow(dialog, GW_CHILD); page; page = GetWindow(page, GW_HWNDNEXT))
        if (const HWND found = GetDlgItem(page, control)) return found;
    return nullptr;
}

void Click(HWND dialog, int control) {
    SendMessageA(Find(dialog, control), BM_CLICK, 0, 0);
}

void Choose(HWND dialog, int control, const std::string& text) {
    const HWND combo = Find(dialog, control);
    const win::ChoiceControl choice{combo, false};
    const int index = win::FindChoice(choice, text);
    ASSERT_GE(index, 0) << text;
    win::SelectChoice(choice, index);
    SendMessageA(GetParent(combo), WM_COMMAND, MAKEWPARAM(control, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(combo));
}

void Type(HWND dialog, int control, const std::string& text) {
    SetWindowTextA(Find(dialog, control), text.c_str());
}

bool CanApply(HWND dialog) {
    return IsWindowEnabled(Find(dialog, frmOptions_ApplyButton));
}

// Another program on the screen may show a dialog of the same name: only this thread's windows
// count.
BOOL CALLBACK TakeOptionsDialog(HWND window, LPARAM found) {
    if (win::WindowText(window) == "Options - Skyvane Alerts" && IsWindowVisible(window))
        *reinterpret_cast<HWND*>(found) = window;
    return TRUE;
}

void CALLBACK RunAct(HWND, UINT, UINT_PTR timer, DWORD) {
    HWND dialog = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), TakeOptionsDialog, reinterpret_cast<LPARAM>(&dialog));
    if (!dialog) return;
    KillTimer(nullptr, timer);
    act(dialog);
    if (IsWindow(dialog)) Click(dialog, frmOptions_Command2);
}

// Opens the dialog, does something to it, and cancels it if it is still open.
void WithDialog(Act what) {
    act = std::move(what);
    SetTimer(nullptr, 0, 1, RunAct);
    ShowOptionsDialog();
}

class OptionsFormTest : public tests::ScratchStore {
  protected:
    void SetUp() override {
        ScratchStore::SetUp();
        ASSERT_TRUE(tray::LoadTrayWindow());
        WriteSetting(kLastOption, "General");
    }
    void TearDown() override {
        tray::StopMinuteClock();
        DestroyWindow(tray::TrayWindow());
        ScratchStore::TearDown();
    }
    static std::map<std::string, std::string> Stored() { return ReadSection(kOptions); }
};
class OptionsDialogTest : public OptionsFormTest {
  protected:
    void SetUp() override {
        OptionsFormTest::SetUp();
        Use(GetParam());
        WriteSetting(kLastOption, "General");
    }
};
INSTANTIATE_TEST_SUITE_P(EitherStore, OptionsDialogTest,
                         testing::Values(kUseIniStore, kUseRegistryStore));

TEST_P(OptionsDialogTest, WritesNoMoreThanItMust) {
    struct Case {
        Act change;
        std::map<std::string, std::string> written;
    };
    const Case cases[] = {
        {[](HWND dialog) {
             for (const char* word : {" wind storm ", "Łódź", "Łódź", "a|b", ""}) {
                 Type(dialog, frmOptions_Text3, word);
                 Click(dialog, frmOptions_Command9);
             }
         },
         {{"alertfilters", "wind storm|||||Łódź|||||a|b"}, {"showfilteredwords", "False"}}},
        {[](HWND dialog) { Click(dialog, frmOptions_Command11); },
         {{"icon2", "default"}, {"singleclickaction", "a"}, {"doubleclickaction", "b"}}},
        {[](HWND dialog) {
             Type(dialog, frmOptions_Text1, "anna");
             Type(dialog, frmOptions_Text2, "Łukasz");  // cannot be scrambled
         },
         {{"onlydownloadwhenconnected", "False"}, {"proxyusername", "bpqe"}}},
    };
    for (const Case& c : cases) {
        win::DeleteFileQuietly(tests::ScratchIniPath());
        DeleteSettingSection(kOptions);
        WriteSetting(kLastOption, "General");
        if (c.written.contains("icon2")) {
            WriteSetting(kSingleClickAction, "a");
            WriteSetting(kDoubleClickAction, "b");
        }
        auto expected = Stored();
        WithDialog([&](HWND dialog) {
            EXPECT_FALSE(CanApply(dialog));
            c.change(dialog);
            EXPECT_TRUE(CanApply(dialog));
            Click(dialog, frmOptions_ApplyButton);
            EXPECT_FALSE(CanApply(dialog));
            EXPECT_TRUE(IsWindowEnabled(GetFocus())) << "the keyboard is lost";
        });
        for (const auto& [key, value] : c.written) expected[key] = value;
        EXPECT_EQ(Stored(), expected);
    }
}

TEST_P(OptionsDialogTest, WritesNothingWithoutAChangeOrAfterCancel) {
    const auto before = Stored();
    WithDialog([](HWND dialog) { Click(dialog, frmOptions_Command1); });
    EXPECT_EQ(Stored(), before);
    WithDialog([](HWND dialog) {
        Click(dialog, frmOptions_Check1);
        Click(dialog, frmOptions_Command2);
    });
    EXPECT_EQ(Stored(), before);
}

TEST_P(OptionsDialogTest, ShowsWhatItCouldNotHaveStored) {
    WriteSetting(kPause30SecondsOnStartup, "true");
    WriteSetting(kTrayAlertSound, "Gone.wav");
    WriteSetting(kLastOption, "Gone");
    WithDialog([](HWND dialog) {
        EXPECT_FALSE(win::IsChecked(GetParent(Find(dialog, frmOptions_Check5)), frmOptions_Check5));
        EXPECT_EQ(win::WindowText(Find(dialog, frmOptions_Combo11)), "Gone.wav");
        EXPECT_TRUE(IsWindowVisible(Find(dialog, frmOptions_Check4)));
    });
}

TEST_P(OptionsDialogTest, RunsTheClock) {
    WithDialog([](HWND dialog) {
        for (const char* interval : {"Every 5 minutes", "Never"}) {
            Choose(dialog, frmOptions_Combo2, interval);
            Click(dialog, frmOptions_ApplyButton);
            const bool runs = interval != std::string("Never");
            EXPECT_EQ(State().automaticUpdate, runs);
            EXPECT_EQ(tray::IsTimerRunning(tray::Timer::TimerUpdate1), runs);
        }
    });
}

TEST_P(OptionsDialogTest, KeepsTheStationFileWhenItCannotBeWritten) {
    UseStations({"1", "2"});
    const std::string path = stations::StationFilePath();
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY);
    SetFileAttributesA(tests::ScratchIniPath().c_str(), FILE_ATTRIBUTE_READONLY);
    WithDialog([](HWND dialog) {
        Click(dialog, frmOptions_Check4);
        Choose(dialog, frmOptions_Combo11, "(None)");
        Click(dialog, frmOptions_Command1);
    });
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    SetFileAttributesA(tests::ScratchIniPath().c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(stations::ReadStationFile(path)->size(), 2u);
    EXPECT_EQ(State().stationCount, 2u);
}

TEST_P(OptionsDialogTest, GoesOnWithoutADataFolder) {
    UseStations({"1", "2"});
    const std::string appData = win::Environment("APPDATA");
    SetEnvironmentVariableA("APPDATA", "Z:\\no\\such");
    WithDialog([](HWND dialog) {
        Click(dialog, frmOptions_Check4);
        Click(dialog, frmOptions_Command1);
    });
    SetEnvironmentVariableA("APPDATA", appData.c_str());
    EXPECT_EQ(State().dataFolder, "Z:\\no\\such\\SkyvaneAlerts");
    EXPECT_EQ(State().stationCount, 2u);
    EXPECT_FALSE(stations::WriteStationFile({"x"}, stations::StationFilePath()));
    EXPECT_EQ(ReadSetting(kRetrieveAlertsOnStartup), "True");
}

TEST_F(OptionsFormTest, AreAllGivenBack) {
    UseStations({"1", "2", "3", "4", "5"});
    const auto openAndClose = [](int times) {
        for (int i = 0; i < times; ++i) WithDialog([](HWND) {});
    };
    openAndClose(10);
    const tests::Handles before = tests::CountHandles();
    openAndClose(500);
    tests::ExpectSameHandles(before, tests::CountHandles());
}

}  // namespace
}  // namespace options
