#include "alerts/modDownloader.h"

#include "tests/ScratchStore.h"
#include "win/NeverDestroyed.h"

namespace alerts {
namespace {

win::FileHandle& lock = win::NeverDestroyed<win::FileHandle>();

class DownloaderTest : public tests::ScratchStore {};

TEST_F(DownloaderTest, WaitsUntilALockedStatusFileCanBeRead) {
    const std::string file = WriteScratchFile("404");
    lock.Reset(CreateFileA(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(lock);
    win::KernelHandle downloader(CreateEventA(nullptr, TRUE, FALSE, nullptr));  // never ends
    const auto unlockAtTheFourthTurn = [] {
        static int turns = 0;
        if (++turns == 4) lock.Reset();
        return turns > 400;
    };
    EXPECT_EQ(WaitForStatus(file, downloader, unlockAtTheFourthTurn), "404");
}

TEST(IsSuccess, ReadsTheNumberAtTheStart) {
    for (const char* text : {"0", "0\r\n", "", "fine", "00"}) EXPECT_TRUE(IsSuccess(text)) << text;
    for (const char* text : {"1", "-1", "404", " 12002"}) EXPECT_FALSE(IsSuccess(text)) << text;
}

}  // namespace
}  // namespace alerts
