#include <gtest/gtest.h>
#include <windows.h>

#include "tests/ScratchStore.h"
#include "win/Dates.h"
#include "win/LateFunctions.h"
#include "win/modTimeout.h"
#include "win/Text.h"

namespace win {
namespace {

class ServicesTest : public tests::ScratchStore {};

int ticks = 0;
void CALLBACK CountTick(HWND, UINT, UINT_PTR, DWORD) {
    ++ticks;
}

TEST_F(ServicesTest, CreatesAndDeletesTemporaryFiles) {
    const std::string kept = MakeTempFileName("SVL");
    const std::string name = MakeTempFileName("SVAxyz");
    ASSERT_TRUE(FileExists(name));
    EXPECT_FALSE(FileHasContent(name));
    EXPECT_TRUE(name.starts_with(GetTempFolder() + "SVA")) << name;
    EXPECT_TRUE(name.ends_with(".tmp")) << name;
    DeleteTempFiles("SVA");
    EXPECT_FALSE(FileExists(name));
    EXPECT_TRUE(FileExists(kept));
    DeleteFileQuietly(kept);
}

TEST_F(ServicesTest, WritesFilesAtomically) {
    const std::string path = WriteScratchFile("old");
    EXPECT_TRUE(WriteFileAtomically(path, "new"));
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_FALSE(WriteFileAtomically(path, "newer"));
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(ReadWholeFile(path), "new");
    EXPECT_FALSE(ReadWholeFile(path, 2));
    EXPECT_FALSE(WriteFileAtomically("c:\\no\\such\\folder\\x", "y"));
    for (const char* text : {"longer", "less"}) {
        EXPECT_TRUE(OverwriteFile(path + "2", text));
        EXPECT_EQ(ReadWholeFile(path + "2"), text);
    }
    DeleteFileQuietly(path + "2");
    EXPECT_EQ(FindFileNames(path + "*").size(), 1u);  // no temporary file is left
}

TEST_F(ServicesTest, PausesHandleMessages) {
    ticks = 0;
    const UINT_PTR timer = SetTimer(nullptr, 0, 10, CountTick);
    PauseTicks(0);
    PauseTicks(-5);
    PauseTicks(32767);  // ten times the count exceeds 16 bits
    EXPECT_EQ(ticks, 0);
    PauseTicks(10);
    KillTimer(nullptr, timer);
    EXPECT_GT(ticks, 0);
}

TEST_F(ServicesTest, ReadsItsOwnDates) {
    EXPECT_EQ(ShortDateIfToday(GeneralDateNow()), ShortDateToday());
    EXPECT_EQ(ShortDateIfToday("no date"), "");
    EXPECT_NE(ShortDateIfToday("1/2/2008 4:12:10 PM"), ShortDateToday());
}

}  // namespace
}  // namespace win
