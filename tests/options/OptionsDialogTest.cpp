#include "settings/ProxyLogin.h"
#include "settings/modRegistry.h"
#include "stations/StationLine.h"
#include "tests/Handles.h"
#include "tests/options/OptionsDriver.h"
#include "win/Handle.h"
#include "win/Process.h"

namespace options {
namespace {

using namespace settings;

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

TEST_P(OptionsDialogTest, WritesOnlyTheChangedPage) {
    struct Case {
        Act change;
        std::map<std::string, std::string> written;
    };
    const Case cases[] = {
        {[](HWND dialog) {
             for (const char* word :
                  {" wind storm ", "Łódź", "Łódź", "天気", "🌪", "ירושלים", "a|b", ""}) {
                 Type(dialog, frmOptions_Text3, word);
                 Click(dialog, frmOptions_Command9);
             }
         },
         {{"alertfilters", "wind storm|||||Łódź|||||天気|||||🌪|||||ירושלים|||||a|b"},
          {"showfilteredwords", "False"}}},
        {[](HWND dialog) { Click(dialog, frmOptions_Command11); },
         {{"icon2", "default"}, {"singleclickaction", "a"}, {"doubleclickaction", "b"}}},
        {[](HWND dialog) { Type(dialog, frmOptions_Text1, "anna"); },
         {{"onlydownloadwhenconnected", "False"},
          {"proxyusername", "bpqe"},
          {"proxypassword", ""}}},
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
            EXPECT_TRUE(IsWindowEnabled(GetFocus())) << "no control has the keyboard focus";
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

TEST_P(OptionsDialogTest, ShowsUnknownValues) {
    WriteSetting(kPause30SecondsOnStartup, "true");
    WriteSetting(kTrayAlertSound, "Gone.wav");
    WriteSetting(kLastOption, "Gone");
    WithDialog([](HWND dialog) {
        EXPECT_FALSE(win::IsChecked(GetParent(Find(dialog, frmOptions_Check5)), frmOptions_Check5));
        EXPECT_EQ(win::WindowText(Find(dialog, frmOptions_Combo11)), "Gone.wav");
        EXPECT_TRUE(IsWindowEnabled(Find(dialog, frmOptions_cmdTest)));
        Choose(dialog, frmOptions_Combo11, "(None)");
        EXPECT_FALSE(IsWindowEnabled(Find(dialog, frmOptions_cmdTest)));
        EXPECT_TRUE(IsWindowVisible(Find(dialog, frmOptions_Check4)));
    });
}

TEST_P(OptionsDialogTest, StartsAndStopsTheClock) {
    WithDialog([](HWND dialog) {
        for (const char* interval : {"Every 5 minutes", "Never"}) {
            Choose(dialog, frmOptions_Combo2, interval);
            SetFocus(Find(dialog, frmOptions_ApplyButton));
            Click(dialog, frmOptions_ApplyButton);
            EXPECT_EQ(GetFocus(), Find(dialog, frmOptions_Command1));
            const bool runs = interval != std::string("Never");
            EXPECT_EQ(State().automaticUpdate, runs);
            EXPECT_EQ(tray::IsTimerRunning(tray::Timer::TimerUpdate1), runs);
        }
    });
}

TEST_P(OptionsDialogTest, StoresEachChangedOption) {
    const auto click = [](int control) { return [=](HWND dialog) { Click(dialog, control); }; };
    const auto choose = [](int control, const char* text) {
        return [=](HWND dialog) { Choose(dialog, control, text); };
    };
    const auto type = [](int control) {
        return [=](HWND dialog) { Type(dialog, control, "anna"); };
    };
    const struct {
        const Setting& setting;
        const char* value;
        Act change;
    } cases[] = {
        {kRetrieveAlertsOnStartup, "True", click(frmOptions_Check4)},
        {kPause30SecondsOnStartup, "True", click(frmOptions_Check5)},
        {kStartWithWindows, "True", click(frmOptions_Check3)},
        {kStartWithWindows, "False", click(frmOptions_Check3)},
        {kStoreFilesInProgramFolder, "True", click(frmOptions_Check28)},
        {kAutoUpdateInterval, "Every hour", choose(frmOptions_Combo2, "Every hour")},
        {kShowFilteredWords, "False", click(frmOptions_OptionIgnore)},
        {kShowFilteredWords, "True", click(frmOptions_Option6)},
        {kAlertFilters, "b",
         [](HWND dialog) {
             SendMessageW(Find(dialog, frmOptions_List2), LB_SETSEL, TRUE, 0);
             ClickAndAnswer(dialog, frmOptions_Command10, IDYES);
         }},
        {kIcon, "default", click(frmOptions_Command4)},
        {kIcon2, "default", click(frmOptions_Command11)},
        {kSingleClickAction, "No Action", choose(frmOptions_SingleClickCombo, "No Action")},
        {kDoubleClickAction, "No Action", choose(frmOptions_DoubleClickCombo, "No Action")},
        {kDisplayTrayAlert, "False", click(frmOptions_Check1)},
        {kTrayAlertSound, "(None)", choose(frmOptions_Combo11, "(None)")},
        {kOnlyDownloadWhenConnected, "True", click(frmOptions_Check17)},
        {kProxyUsername, "bpqe", type(frmOptions_Text1)},
        {kProxyPassword, "bpqe", type(frmOptions_Text2)},
    };
    WriteSetting(kAlertFilters, "a|||||b");
    WriteSetting(kShowFilteredWords, "True");
    WriteSetting(kTrayAlertSound, "Gone.wav");
    WithDialog([&](HWND dialog) {
        for (const auto& c : cases) {
            c.change(dialog);
            EXPECT_TRUE(CanApply(dialog)) << c.setting.key;
            ClickAndAnswer(dialog, frmOptions_ApplyButton, IDOK);
            EXPECT_FALSE(CanApply(dialog)) << c.setting.key;
            EXPECT_EQ(ReadSetting(c.setting), c.value) << c.setting.key;
        }
    });
    win::DeleteFolder(State().programFolder + "\\Users");
}

TEST_F(OptionsFormTest, KeepsApplyAfterALoginThatCannotBeStored) {
    WithDialog([](HWND dialog) {
        for (const std::string name : {"Müller 5 €", "Łukasz"}) {
            Type(dialog, frmOptions_Text1, name);
            ClickAndAnswer(dialog, frmOptions_ApplyButton, IDOK);
            EXPECT_EQ(CanApply(dialog), name == "Łukasz");
            EXPECT_EQ(ReadProxyLogin().userName, "Müller 5 €");
        }
    });
}

TEST_F(OptionsFormTest, RenamesStationsInEveryScript) {
    UseStations({"1"});
    WithDialog([](HWND dialog) {
        for (const std::string name : {"Łódź", "Ελλάδα", "天気", "🌪 Twister", "ירושלים"}) {
            ClickAndAnswer(dialog, frmOptions_Command23, IDOK, name);
            ClickAndAnswer(dialog, frmOptions_ApplyButton, IDOK);
            EXPECT_EQ(win::WindowText(Find(dialog, frmOptions_Combo1)), name);
            EXPECT_EQ(stations::DisplayText(State().stations[0]), name);
        }
    });
}

TEST_F(OptionsFormTest, ShowsThatWindowsHasSwitchedOffTheStart) {
    WriteSetting(kLastOption, "General");
    WriteSetting(kStartWithWindows, "True");
    for (const char state : {2, 3}) {
        RegistrySetValue(kCurrentUser, kStartupListKey, kRunValue, state + std::string(11, '\0'),
                         REG_BINARY);
        WithDialog([&](HWND dialog) {
            const HWND line = Find(dialog, frmOptions_SwitchedOff);
            EXPECT_EQ(IsWindowVisible(line), state == 3);
            Click(dialog, frmOptions_Check3);
            EXPECT_FALSE(IsWindowVisible(line));
        });
    }
    RegistryDeleteValue(kCurrentUser, kStartupListKey, kRunValue);
}

TEST_F(OptionsFormTest, RemovesNothingAfterNoOrCancel) {
    UseStations({"1", "2"});
    WriteSetting(kAlertFilters, "a");
    WithDialog([](HWND dialog) {
        SendMessageW(Find(dialog, frmOptions_List2), LB_SETSEL, TRUE, 0);
        for (const int button : {frmOptions_Command7, frmOptions_Command5, frmOptions_Command10})
            ClickAndAnswer(dialog, button, IDNO);
        ClickAndAnswer(dialog, frmOptions_Command23, IDCANCEL);
        EXPECT_FALSE(CanApply(dialog));
        EXPECT_EQ(win::CountItems({Find(dialog, frmOptions_Combo1), false}), 2);
        EXPECT_EQ(win::CountItems({Find(dialog, frmOptions_List2), true}), 1);
    });
}

TEST_F(OptionsFormTest, KeepsApplyAfterAFailedStationWrite) {
    UseStations({"1", "2"});
    const std::string path = stations::StationFilePath();
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY);
    WithDialog([&](HWND dialog) {
        ClickAndAnswer(dialog, frmOptions_Command7, IDYES);
        Click(dialog, frmOptions_ApplyButton);
        EXPECT_TRUE(CanApply(dialog));
        EXPECT_EQ(stations::ReadStationFile(path)->size(), 2u);
        EXPECT_EQ(State().stationCount, 2u);
        SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
        Click(dialog, frmOptions_ApplyButton);
        EXPECT_FALSE(CanApply(dialog));
        EXPECT_EQ(stations::ReadStationFile(path)->size(), 1u);
        EXPECT_EQ(State().stationCount, 1u);
    });
}

TEST_F(OptionsFormTest, LeavesAnUnreadStationFileAlone) {
    UseStations({"1", "2"});
    const std::string path = stations::StationFilePath();
    State().stations.clear();
    State().stationCount = 0;
    win::FileHandle held = tests::HoldFile(path);
    stations::LoadStationList();
    EXPECT_TRUE(stations::IsStationListUnread());
    WithDialog([&](HWND dialog) {
        const int buttons[] = {frmOptions_Command6, frmOptions_Command23, frmOptions_Command7,
                               frmOptions_Command5};
        for (const int button : buttons) EXPECT_FALSE(IsWindowEnabled(Find(dialog, button)));
        held.Reset();
        PumpUntilEnabled([&] { return Find(dialog, buttons[0]); });
        for (const int button : buttons) EXPECT_TRUE(IsWindowEnabled(Find(dialog, button)));
        EXPECT_EQ(win::CountItems({Find(dialog, frmOptions_Combo1), false}), 2);
        EXPECT_FALSE(CanApply(dialog));
    });
    EXPECT_EQ(State().stationCount, 2u);

    win::FileHandle tooLong = tests::HoldFile(path);
    SetFilePointer(tooLong.Get(), static_cast<LONG>(win::kLongestFile + 1), nullptr, FILE_BEGIN);
    SetEndOfFile(tooLong.Get());
    tooLong.Reset();
    EXPECT_FALSE(stations::ReadStationFile(path));
}

TEST_F(OptionsFormTest, WaitsForUnreadSettings) {
    WriteSetting(kRetrieveAlertsOnStartup, "True");
    win::FileHandle held = tests::HoldFile(tests::ScratchIniPath());
    WithDialog([&](HWND dialog) {
        const auto page = [&] { return GetParent(Find(dialog, frmOptions_Check4)); };
        EXPECT_FALSE(IsWindowEnabled(page()));
        Click(dialog, frmOptions_Check4);
        EXPECT_FALSE(CanApply(dialog));
        held.Reset();
        PumpUntilEnabled(page);
        EXPECT_TRUE(win::IsChecked(page(), frmOptions_Check4));
    });
}

TEST_P(OptionsDialogTest, WorksWithoutADataFolder) {
    UseStations({"1", "2"});
    const std::string appData = win::Environment("APPDATA");
    win::SetEnvironment("APPDATA", "Z:\\no\\such");
    WithDialog([](HWND dialog) {
        Click(dialog, frmOptions_Check4);
        ClickAndAnswer(dialog, frmOptions_Command7, IDYES);
        Click(dialog, frmOptions_ApplyButton);
        EXPECT_TRUE(CanApply(dialog));
        Click(dialog, frmOptions_Command1);
        EXPECT_FALSE(IsWindow(dialog));
    });
    win::SetEnvironment("APPDATA", appData);
    EXPECT_EQ(State().dataFolder, "Z:\\no\\such\\SkyvaneAlerts");
    EXPECT_EQ(State().stationCount, 2u);
    EXPECT_EQ(ReadSetting(kRetrieveAlertsOnStartup), "True");
}

TEST_F(OptionsFormTest, OpeningManyTimesLeaksNothing) {
    UseStations({"1", "2", "3", "4", "5"});
    const auto openAndClose = [](int times) {
        for (int i = 0; i < times; ++i) WithDialog([](HWND) {});
    };
    openAndClose(10);
    const tests::Handles before = tests::CountHandles();
    openAndClose(100);
    tests::ExpectSameHandles(before, tests::CountHandles());
}

}  // namespace
}  // namespace options
