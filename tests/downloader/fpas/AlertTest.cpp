#include "downloader/fpas/Alert.h"

#include <gtest/gtest.h>

#include "tests/downloader/fpas/Documents.h"

namespace fpas {
namespace {

TEST(ReadAlert, TruncatesLongTextsButNotReferences) {
    std::string words;
    for (int i = 0; i < 20'000; ++i) words += "ж";
    const auto alert =
        ReadAlert(Document({{"references", words}}, Block({{"description", words}})));
    ASSERT_TRUE(alert);
    EXPECT_EQ(alert->references, words);
    EXPECT_EQ(alert->infos[0].description.substr(32'760), "жжж...");
}

TEST(ReadAlert, RejectsOtherDocuments) {
    std::string blocks;
    for (int i = 0; i < 1000; ++i) blocks += Block({});
    const std::pair<std::string, bool> kCases[] = {
        {Document({}, blocks), true},
        {Document({}, blocks + Block({})), false},
        {Document({}, Block({{"headline", "\xFF"}})), false},
        {Document({}, Block({{"headline", "&#xD800;"}})), false},
        {"<html><body>Bad gateway</body></html>", false},
    };
    for (const auto& [document, isAlert] : kCases)
        EXPECT_EQ(ReadAlert(document).has_value(), isAlert) << document.substr(0, 600);
}

}  // namespace
}  // namespace fpas
