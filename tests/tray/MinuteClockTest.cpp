#include "tray/MinuteClock.h"

#include <gtest/gtest.h>

#include "tests/ScratchStore.h"
#include "tray/RetrieveAlerts.h"
#include "tray/frmTray.h"

namespace tray {
namespace {

class MinuteClockTest : public tests::ScratchStore {
  protected:
    void SetUp() override {
        ScratchStore::SetUp();
        ASSERT_TRUE(LoadTrayWindow());
        UseStations({"1"});
        settings::State().autoUpdateInterval = "Every 5 minutes";
        StartMinuteClock();
    }
    void TearDown() override {
        StopMinuteClock();
        DestroyWindow(TrayWindow());
        ScratchStore::TearDown();
    }
    // Whether the next tick retrieves. There is no downloader: each cycle fails at once.
    static bool RetrievesNow() {
        std::uint64_t& lastEnd = settings::State().lastCycleEnd;
        const std::uint64_t before = lastEnd;
        const Timer half =
            IsTimerRunning(Timer::TimerUpdate1) ? Timer::TimerUpdate1 : Timer::TimerUpdate2;
        SendMessageA(TrayWindow(), WM_TIMER, static_cast<WPARAM>(half), 0);
        WaitForRetrieval();
        return lastEnd != before;
    }
};

TEST_F(MinuteClockTest, RetrievesAfterALongSleep) {
    constexpr std::uint64_t kMinute = 60'000;
    const auto sleep = [](std::uint64_t milliseconds) {
        settings::State().lastCycleEnd -= milliseconds;
        SendMessageA(TrayWindow(), WM_POWERBROADCAST, PBT_APMRESUMEAUTOMATIC, 0);
    };
    EXPECT_FALSE(RetrievesNow());
    sleep(4 * kMinute);
    EXPECT_FALSE(RetrievesNow());
    sleep(kMinute);
    EXPECT_TRUE(RetrievesNow());
    EXPECT_FALSE(RetrievesNow());
    settings::State().lastCycleEnd -= 5 * kMinute;  // without sleep
    EXPECT_FALSE(RetrievesNow());
}

TEST_F(MinuteClockTest, StaysStoppedWhenARetrievalEnds) {
    settings::State().minuteCounter = 4;
    SendMessageA(TrayWindow(), WM_TIMER, static_cast<WPARAM>(Timer::TimerUpdate1), 0);
    StopMinuteClock();  // as the Options dialog does for "Never"
    WaitForRetrieval();
    EXPECT_FALSE(IsTimerRunning(Timer::TimerUpdate1) || IsTimerRunning(Timer::TimerUpdate2));
}

}  // namespace
}  // namespace tray
