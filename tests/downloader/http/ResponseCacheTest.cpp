#include "downloader/http/ResponseCache.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace http
