#include "alerts/PlaceAnswers.h"

#include <gtest/gtest.h>

namespace alerts {
namespace {

TEST(PlaceAnswers, KeepsTheAnswerToTheLatestRequest) {
    const auto find = [] { return FindAnswer("66044", "feed"); };
    const auto succeed = [&find](std::uint64_t tick) {
        PlaceAnswer answer;
        answer.tick = tick;
        RecordAnswer("66044", "feed", answer);
        return find();
    };
    succeed(5);
    EXPECT_EQ(succeed(3).tick, 5u);
    RecordFailure("66044", "feed", 4);
    EXPECT_FALSE(find().lastFailed);
    RecordFailure("66044", "feed", 8);
    EXPECT_TRUE(find().lastFailed);
    EXPECT_TRUE(succeed(7).lastFailed);
    EXPECT_FALSE(succeed(9).lastFailed);
}

}  // namespace
}  // namespace alerts
