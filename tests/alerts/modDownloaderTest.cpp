#include "alerts/modDownloader.h"

#include "tests/ScratchStore.h"
#include "win/NeverDestroyed.h"

namespace alerts {
namespace {

win::FileHandle& holder = win::NeverDestroyed<win::FileHandle>();

class DownloaderTest : public tests::ScratchStore {};

TEST_F(DownloaderTest, StatusThatCannotBeReadYetIsWaitedFor) {
    const std::string file = WriteScratchFile("404");
    holder.Reset(CreateFileA(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(holder);
    win::KernelHandle downloader(CreateEventA(nullptr, TRUE, FALSE, nullptr));  // one that runs on
    const auto letGoAfterSomeTurns = [] {
        static int turns = 0;
        if (++turns == 4) holder.Reset();
        return turns > 400;
    };
    EXPECT_EQ(WaitForStatus(file, downloader, letGoAfterSomeTurns), "404");
}

}  // namespace
}  // namespace alerts
