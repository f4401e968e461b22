#include <gtest/gtest.h>
#include <windows.h>

#include "settings/modRegistry.h"
#include "tests/ScratchStore.h"
#include "win/Handle.h"
#include "win/Process.h"
#include "win/Text.h"

namespace settings {
namespace {

std::string Repeat(std::string_view text, std::size_t times) {
    std::string result;
    for (std::size_t i = 0; i < times; ++i) result += text;
    return result;
}

win::FileHandle held;
void CALLBACK Unlock(HWND, UINT, UINT_PTR timer, DWORD) {
    KillTimer(nullptr, timer);
    held.Reset();
}

class Store : public tests::ScratchStore {};
class EitherStore : public Store {
  protected:
    void SetUp() override {
        ScratchStore::SetUp();
        Use(GetParam());
    }
};
INSTANTIATE_TEST_SUITE_P(Both, EitherStore, testing::Values(kUseIniStore, kUseRegistryStore));

TEST_P(EitherStore, RoundTrips) {
    EXPECT_EQ(ReadSetting("Options", "Never written"), "");
    for (const std::string value : {"True", " spaces at both ends ", "\"quoted\"", "a|||||b",
                                    "Łódź ¦ 天気", "a=b;c", "", "last"}) {
        WriteSetting("Options", "LastUpdated", value);
        EXPECT_EQ(ReadSetting("Options", "LASTupdated"), value);
    }
    const bool isIni = GetParam() == kUseIniStore;
    // Values longer than the limit would crash the profile functions of some systems.
    for (const std::size_t length : {800u, 100000u}) {
        WriteSetting("Options", "Long", Repeat("Ł", length));
        EXPECT_EQ(ReadSetting("Options", "Long"), Repeat("Ł", isIni ? 749 : length));
        EXPECT_LE(win::ReadWholeFile(tests::ScratchIniPath()).value_or("").size(), 2000u);
    }
    EXPECT_EQ(ReadSetting("Options", "LastUpdated"), "last");
}

TEST_P(EitherStore, HeldValuesReadAsIfWrittenOneByOne) {
    WriteSetting("Alerts", "title1", "old");
    WriteSetting("Alerts", "keep", "kept");
    WriteSetting("Misc", "Runs", "7");
    HoldAlertSettings({{"title1", "first"}, {"body1", "a\r\n[Misc]\r\nRuns=0"}});
    HoldAlertSettings({{"title1", "new & Łódź"}, {"Long", Repeat("Ł", 800)}});
    const bool isIni = GetParam() == kUseIniStore;
    for (const bool stored : {false, true}) {
        if (stored) StoreHeldSettings();
        EXPECT_EQ(ReadSetting("alerts", "Title1"), "new & Łódź");
        EXPECT_EQ(ReadSetting("Alerts", "body1"),
                  isIni ? "a [Misc] Runs=0" : "a\r\n[Misc]\r\nRuns=0");
        EXPECT_EQ(ReadSetting("Alerts", "Long"), Repeat("Ł", isIni ? 749 : 800));
        EXPECT_EQ(ReadSection("Alerts")->at("title1"), "new & Łódź");
        EXPECT_EQ(ReadSetting("Alerts", "keep"), "kept");
    }
    const auto section = *ReadSection("Alerts");
    EXPECT_EQ(section.size(), 4u);
    EXPECT_EQ(section.at("body1"), ReadSetting("Alerts", "Body1"));
}

TEST_P(EitherStore, DeletesASectionFromTheRegistryOnly) {
    WriteSetting("Alerts", "Count", "2");
    DeleteSettingSection("Alerts");
    EXPECT_EQ(ReadSetting("Alerts", "Count"), GetParam() == kUseIniStore ? "2" : "");
}

TEST_F(Store, TruncatesLongForeignValuesAtCharacterBoundaries) {
    for (const char* start : {"", "x", "xx", "xxx"}) {  // the system may cut a character
        const std::string value = start + Repeat("\xF0\x9F\x8C\xAA", 800);
        win::WriteFileAtomically(tests::ScratchIniPath(), "[Options]\r\nk=" + value);
        EXPECT_EQ(ReadSetting("Options", "k"), win::FirstChars(value, 749));
    }
}

TEST_F(Store, DoesNothingWithAnInvalidStore) {
    UseIni = 1;
    WriteSetting("Options", "k", "v");
    EXPECT_EQ(ReadSetting("Options", "k"), "");
    EXPECT_FALSE(win::FileExists(tests::ScratchIniPath()));
}

TEST_F(Store, KeepsAUtf16IniFile) {
    const std::string wide("\xFF\xFE[\0A\0]\0\r\0\n\0", 12);
    ASSERT_TRUE(win::WriteFileAtomically(tests::ScratchIniPath(), wide));
    WriteSetting("A", "k", "天 v");
    EXPECT_EQ(ReadSetting("A", "k"), win::ToAnsi("天 v"));
    EXPECT_TRUE(win::ReadWholeFile(tests::ScratchIniPath()).value_or("").starts_with(wide));
}

TEST_F(Store, KeepsAnIniFileThatCannotBeReplaced) {
    WriteSetting("Options", "k", "old");
    const std::string before = win::ReadWholeFile(tests::ScratchIniPath()).value_or("");
    const std::string inTheWay = tests::ScratchIniPath() + ".new";
    win::MakeFolder(inTheWay);  // blocks the temporary file, as a full disk does
    WriteSetting("Options", "k", "new");
    for (const char* count : {"1", "2"}) {
        HoldAlertSettings({{"Count", count}});
        StoreHeldSettings();
    }
    EXPECT_EQ(win::ReadWholeFile(tests::ScratchIniPath()), before);
    EXPECT_EQ(ReadSetting("Alerts", "Count"), "2");
    win::DeleteFolder(inTheWay);
    StoreHeldSettings();
    EXPECT_EQ(win::ReadWholeFile(tests::ScratchIniPath()), before + "[Alerts]\r\nCOUNT=2\r\n");
}

TEST_F(Store, DoesNotRewriteEqualValues) {
    WriteSetting("Options", "k", "v");
    const win::FileHandle reader(CreateFileA(tests::ScratchIniPath().c_str(), GENERIC_READ,
                                             FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    const ULONGLONG start = GetTickCount64();
    WriteSetting("Options", "k", "v");
    EXPECT_LT(GetTickCount64() - start, 300u);  // replacing would be retried for half a second
}

TEST_F(Store, WaitsForALockedIniFileAndNeverOverwritesIt) {
    WriteSetting("Misc", "Runs", "7");
    EXPECT_EQ(ReadSetting("Misc", "Runs"), "7");
    held = tests::HoldFile(tests::ScratchIniPath());
    SetTimer(nullptr, 0, 300, Unlock);
    EXPECT_EQ(ReadSetting("Misc", "Never written"), "");
    EXPECT_FALSE(held) << "read without waiting";

    const std::string before = win::ReadWholeFile(tests::ScratchIniPath()).value_or("");
    held = tests::HoldFile(tests::ScratchIniPath());
    EXPECT_EQ(ReadSetting("Misc", "Runs"), "7") << "the last known value";
    EXPECT_EQ(TryReadSetting("Misc", "Other"), std::nullopt);
    EXPECT_EQ(ReadSection("Misc"), std::nullopt);
    const ULONGLONG start = GetTickCount64();
    for (int i = 0; i < 20; ++i) EXPECT_EQ(ReadSetting("Misc", "Other"), "");
    EXPECT_LT(GetTickCount64() - start, 1000u) << "waited for each value";
    held.Reset();
    WriteSetting("Misc", "Other", "1");
    EXPECT_EQ(win::ReadWholeFile(tests::ScratchIniPath()), before);
    EXPECT_EQ(ReadSetting("Misc", "Other"), "");
    WriteSetting("Misc", "Other", "8");
    EXPECT_EQ(ReadSetting("Misc", "Other"), "8");
}

TEST_F(Store, KeepsTextInEveryScript) {
    const std::string text = "Łódź, Ελλάδα, 天気, 🌪, ירושלים";
    for (const std::int16_t store : {kUseIniStore, kUseRegistryStore}) {
        Use(store);
        WriteSetting("Options", "k", text);
        EXPECT_EQ(ReadSetting("Options", "k"), text);
        EXPECT_EQ(ReadSection("Options")->at("k"), text);
    }
}

TEST_F(Store, ExpandsVariablesInRegistryValues) {
    Use(kUseRegistryStore);
    WriteSetting("Options", "k", "v");
    RegistrySetValue(kCurrentUser, "Software\\VB and VBA Program Settings\\Skyvane Alerts\\Options",
                     "Icon", "%windir%\\x.ico", REG_EXPAND_SZ);
    const std::string expanded = win::Environment("windir") + "\\x.ico";
    EXPECT_EQ(ReadSetting(kIcon), expanded);
    EXPECT_EQ(ReadSection("Options")->at("icon"), expanded);
}

TEST_F(Store, WritesFindsAndDeletesRegistryValues) {
    const std::string key = "Software\\SkyvaneAlertsTest";
    EXPECT_EQ(RegistryReadValue(kCurrentUser, key, "Name"), "");
    RegistrySetValue(kCurrentUser, key, "Name", "data", kRegistryText);
    RegistrySetValue(kCurrentUser, key, "Other", "x", kRegistryText);
    EXPECT_EQ(RegistryReadValue(kCurrentUser, key, "Name"), "data");
    EXPECT_EQ(RegistryReadValue(kCurrentUser, key, "name"), "");
    RegistryDeleteValue(kCurrentUser, key, "Name");
    EXPECT_EQ(RegistryReadValue(kCurrentUser, key, "Name"), "");
    RegDeleteTreeW(HKEY_CURRENT_USER, win::ToWide(key).c_str());
}

}  // namespace
}  // namespace settings
