#include <gtest/gtest.h>
#include <windows.h>

#include "settings/modRegistry.h"
#include "tests/ScratchStore.h"

namespace settings {
namespace {

class Store : public tests::ScratchStore {};
class EitherStore : public Store {
  protected:
    void SetUp() override {
        ScratchStore::SetUp();
        Use(GetParam());
    }
};
INSTANTIATE_TEST_SUITE_P(Both, EitherStore, testing::Values(kUseIniStore, kUseRegistryStore));

TEST_P(EitherStore, GivesBackWhatItTook) {
    EXPECT_EQ(ReadSetting("Options", "Never written"), "");
    for (const std::string value : {"True", " blanks at both ends ", "\"quoted\"", "a|||||b",
                                    "Łódź ¦ 天気", "a=b;c", "", "last"}) {
        WriteSetting("Options", "LastUpdated", value);
        EXPECT_EQ(ReadSetting("Options", "LASTupdated"), value);
    }
    const bool isIni = GetParam() == kUseIniStore;
    WriteSetting("Options", "Long", std::string(800, 'x'));
    EXPECT_EQ(ReadSetting("Options", "Long").size(), isIni ? 749u : 800u);
    // What an INI file makes of a line this long is the system's affair; the rest must stay.
    WriteSetting("Options", "Long", std::string(100000, 'x'));
    EXPECT_LE(ReadSetting("Options", "Long").size(), isIni ? 749u : 100000u);
    EXPECT_EQ(ReadSetting("Options", "LastUpdated"), "last");
}

TEST_P(EitherStore, WritesManyAsIfOneByOne) {
    WriteSetting("Alerts", "title1", "old");
    WriteSetting("Alerts", "keep", "kept");
    WriteSetting("Misc", "Runs", "7");
    HoldSettings("Alerts", {{"title1", "first"}, {"body1", "a\r\n[Misc]\r\nRuns=0"}});
    HoldSettings("Alerts", {{"title1", "new & Łódź"}, {"Long", std::string(800, 'x')}});
    const bool isIni = GetParam() == kUseIniStore;
    for (const bool stored : {false, true}) {
        if (stored) StoreHeldSettings();
        EXPECT_EQ(ReadSetting("alerts", "Title1"), "new & Łódź");
        EXPECT_EQ(ReadSetting("Alerts", "body1"),
                  isIni ? "a [Misc] Runs=0" : "a\r\n[Misc]\r\nRuns=0");
        EXPECT_EQ(ReadSetting("Alerts", "Long").size(), isIni ? 749u : 800u);
        EXPECT_EQ(ReadSetting("Alerts", "keep"), "kept");
    }
    EXPECT_EQ(ReadSetting("Misc", "Runs"), "7");
    const auto section = ReadSection("Alerts");
    EXPECT_EQ(section.size(), 4u);
    EXPECT_EQ(section.at("title1"), "new & Łódź");
    EXPECT_EQ(section.at("body1"), ReadSetting("Alerts", "Body1"));
}

TEST_P(EitherStore, DeletesASectionFromTheRegistryAlone) {
    WriteSetting("Alerts", "Count", "2");
    DeleteSettingSection("Alerts");
    EXPECT_EQ(ReadSetting("Alerts", "Count"), GetParam() == kUseIniStore ? "2" : "");
}

TEST_F(Store, WritesUpperCaseKeysIntoTheUsersOwnFile) {
    WriteSetting("Misc", "LastUpdated", "now");
    const std::string text = win::ReadWholeFile(tests::ScratchIniPath()).value_or("");
    EXPECT_NE(text.find("[Misc]\r\nLASTUPDATED=now\r\n"), std::string::npos) << text;
}

TEST_F(Store, NeverGivesHalfACharacter) {
    std::string value(748, 'x');
    WriteSetting("Options", "k", value + "Ł");
    EXPECT_EQ(ReadSetting("Options", "k"), value);
}

TEST_F(Store, DoesNothingWithoutAChoice) {
    UseIni = 1;
    WriteSetting("Options", "k", "v");
    EXPECT_EQ(ReadSetting("Options", "k"), "");
    EXPECT_FALSE(win::FileExists(tests::ScratchIniPath()));
}

TEST_F(Store, LeavesAWideIniFileAsItIs) {
    const std::string wide("\xFF\xFE[\0A\0]\0\r\0\n\0", 12);
    ASSERT_TRUE(win::ReplaceFileWhole(tests::ScratchIniPath(), wide));
    HoldSettings("A", {{"k", "v"}});
    StoreHeldSettings();
    EXPECT_EQ(ReadSetting("A", "k"), "v");
    EXPECT_TRUE(win::ReadWholeFile(tests::ScratchIniPath()).value_or("").starts_with(wide));
}

TEST_F(Store, WalksRegistryValues) {
    const std::string key = "Software\\SkyvaneAlertsTest";
    EXPECT_EQ(RegistryReadValue(kCurrentUser, key, "Name"), "");
    RegistrySetValue(kCurrentUser, key, "Name", "data", kRegistryText);
    RegistrySetValue(kCurrentUser, key, "Other", "x", kRegistryText);
    EXPECT_EQ(RegistryReadValue(kCurrentUser, key, "Name"), "data");
    EXPECT_EQ(RegistryReadValue(kCurrentUser, key, "name"), "");
    RegistryDeleteValue(kCurrentUser, key, "Name");
    EXPECT_EQ(RegistryReadValue(kCurrentUser, key, "Name"), "");
    RegDeleteTreeA(HKEY_CURRENT_USER, key.c_str());
}

}  // namespace
}  // namespace settings
