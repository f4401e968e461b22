// Builds an alert document from the Weather Service's answer in the first argument, and parses its
// JSON alone. Prints a line per run: milliseconds for the document, milliseconds for the parser;
// then the size of the answer and the peak of additional memory, in bytes; then the milliseconds of
// the slowest look-up in the gazetteer, the second argument.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <rapidjson/reader.h>

#include "bench/CountedMemory.h"
#include "bench/Stopwatch.h"
#include "downloader/feed/GazetteerFile.h"
#include "downloader/feed/PlaceSearch.h"
#include "downloader/http/ResponseCache.h"
#include "downloader/nws/Alerts.h"
#include "win/Files.h"

namespace {

// Every look-up opens the file again, as every run of the program does.
double SlowestLookUp(const char* file) {
    double slowest = 0;
    for (const char* name :
         {"Springfield", "s", "s, x", "Zwolle, LA", "Nowhere", "Łódź, Poland", "66044", "99950"}) {
        const double began = bench::Milliseconds();
        const feed::GazetteerFile mapped(file);
        const auto gazetteer = mapped.Open();
        if (!gazetteer) std::exit(1);
        feed::FindZipCode(*gazetteer, name);
        feed::FindCity(*gazetteer, "g2988507");
        feed::FindPlaces(*gazetteer, name, 50, feed::Scope::World);
        slowest = std::max(slowest, bench::Milliseconds() - began);
    }
    return slowest;
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 3) return 1;
    const auto answer = win::ReadWholeFile(arguments[1]);
    if (!answer) return 1;
    const std::int64_t now = http::SecondsNow();
    const nws::AlertPlace place{{34.1, -80.7}, 10, {}};
    constexpr int kRounds = 15;
    std::size_t before = 0;
    for (int round = -1; round < kRounds; ++round) {
        std::string forDocument = *answer, forParser = *answer;
        feed::AlertMemory memory;
        before = bench::ResetPeak();
        const double began = bench::Milliseconds();
        const bool isBuilt =
            nws::BuildAlertDocument(std::move(forDocument), place, memory, now).has_value();
        const double built = bench::Milliseconds();
        rapidjson::InsituStringStream stream(forParser.data());
        rapidjson::BaseReaderHandler<> ignore;
        const bool isJson =
            !rapidjson::Reader().Parse<rapidjson::kParseInsituFlag>(stream, ignore).IsError();
        const double parsed = bench::Milliseconds();
        if (!isBuilt || !isJson) return 1;
        if (round >= 0) std::printf("%.3f %.3f\n", built - began, parsed - built);
    }
    std::printf("%u %u\n", static_cast<unsigned>(answer->size()),
                static_cast<unsigned>(bench::Peak() - before));
    std::printf("%.3f\n", SlowestLookUp(arguments[2]));
    return 0;
}
