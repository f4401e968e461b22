#include "downloader/http/ResponseCache.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>

namespace http {
namespace {

TEST(ResponseCache, ReturnsOnlyValidEntries) {
    const std::string entry = PackEntry("key", 1000, 30, "two\nlines\n");
    for (const auto& [now, key, expected] : {std::tuple{1000, "key", "two\nlines\n"},
                                             {1029, "key", "two\nlines\n"},
                                             {1030, "key", ""},
                                             {999, "key", ""},
                                             {1000, "other", ""}}) {
        const auto document = UnpackEntry(entry, key, now);
        EXPECT_EQ(document ? document->text : "", expected) << now << key;
        EXPECT_EQ(document ? document->age : now - 1000, now - 1000);
    }
    for (std::size_t length = 0; length < entry.size(); ++length)
        EXPECT_FALSE(UnpackEntry(entry.substr(0, length), "key", 1000)) << length;
    EXPECT_FALSE(UnpackEntry("skyvane-answer-1\n-9223372036854775808\n1\n\nkey\n", "key", 1000));
}

TEST(TrimCached, KeepsTheNewestFilesWithinTheLimits) {
    const std::string slots[] = {"trim-0", "trim-1", "trim-2", "trim-3"};
    for (const std::string& slot : slots) {
        StoreCached("key", 60, std::string(1000, 'x'), slot);
        Sleep(20);  // the order is that of the files' times
    }
    const auto count = [&] {
        return std::ranges::count_if(
            slots, [](auto& slot) { return FindCached("key", slot).has_value(); });
    };
    TrimCached("trim-", 4, 5000);
    EXPECT_EQ(count(), 4);
    TrimCached("trim-", 3, 5000);
    EXPECT_EQ(count(), 3);
    TrimCached("trim-", 3, 1500);
    EXPECT_EQ(count(), 1);
    EXPECT_TRUE(FindCached("key", slots[3]));
    TrimCached("trim-", 0, 0);
    EXPECT_EQ(count(), 0);
}

}  // namespace
}  // namespace http
