// Builds an alert document from the CAP document in the first argument, and parses its XML alone.
// Prints a line per run: milliseconds for the document, milliseconds for the parser; then the size
// of the CAP document and the peak of additional memory, in bytes.
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "bench/CountedMemory.h"
#include "bench/Stopwatch.h"
#include "downloader/fpas/Alerts.h"
#include "downloader/http/ResponseCache.h"
#include "win/Files.h"

#define RAPIDXML_NO_EXCEPTIONS
#include <rapidxml/rapidxml.hpp>

int main(int count, char** arguments) {
    if (count != 2) return 1;
    const auto bytes = win::ReadWholeFile(arguments[1]);
    if (!bytes) return 1;
    constexpr std::int64_t kNow = 1740787200;  // 1 March 2025, when the recorded alert is in force
    constexpr int kRounds = 15;
    std::size_t before = 0;
    for (int round = -1; round < kRounds; ++round) {
        std::string forDocument = *bytes, forParser = *bytes;
        feed::AlertMemory memory;
        before = bench::ResetPeak();
        const double began = bench::Milliseconds();
        fpas::Answer answer;
        answer.documents.push_back({"1", "", fpas::ReadAlert(std::move(forDocument))});
        const bool isRead = answer.documents.front().alert.has_value();
        const std::string xml =
            fpas::BuildAlertDocument(answer, {"g1", {47.4, 8.5}}, "en-US", memory, kNow);
        const double built = bench::Milliseconds();
        const std::size_t peak = bench::Peak();
        const auto tree = std::make_unique<rapidxml::xml_document<char>>();
        const double beganParse = bench::Milliseconds();
        tree->parse<0>(forParser.data());
        const double parsed = bench::Milliseconds();
        if (!isRead || !tree->first_node("alert")) return 1;
        if (round < 0) continue;
        std::printf("%.3f %.3f\n", built - began, parsed - beganParse);
        if (round == kRounds - 1)
            std::printf("%u %u\n", static_cast<unsigned>(bytes->size()),
                        static_cast<unsigned>(peak - before));
    }
    return 0;
}
