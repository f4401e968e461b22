// Turns the answer of the Weather Service that its argument names into an alert document, and
// parses its JSON alone. Prints a line per run: milliseconds for the document, milliseconds for the
// parsing; then a line: bytes of the answer, and the most that was allocated beside it at any time.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <nlohmann/json.hpp>

#include "bench/Stopwatch.h"
#include "downloader/AnswerCache.h"
#include "downloader/MappedFile.h"
#include "downloader/NwsAlertsRules.h"
#include "downloader/NwsPlacesRules.h"
#include "win/Files.h"

namespace {

constexpr std::size_t kHeader = 16;  // before each piece of memory: its size
std::size_t allocated = 0;
std::size_t most = 0;

// Each look-up opens the file anew, as each run of the program does.
double SlowestLookUp(const char* file) {
    double slowest = 0;
    for (const char* name : {"Springfield", "s", "Zwolle, LA", "Nowhere", "66044", "99950"}) {
        const double began = bench::Milliseconds();
        const downloader::MappedFile mapped(file);
        const auto gazetteer = downloader::OpenGazetteer(mapped.Bytes());
        if (!gazetteer) std::exit(1);
        downloader::FindZipCode(*gazetteer, name);
        downloader::FindPlaces(*gazetteer, name, 50);
        slowest = std::max(slowest, bench::Milliseconds() - began);
    }
    return slowest;
}

}  // namespace

void* operator new(std::size_t size) {
    char* const memory = static_cast<char*>(std::malloc(size + kHeader));
    if (!memory) std::abort();
    *reinterpret_cast<std::size_t*>(memory) = size;
    allocated += size;
    if (allocated > most) most = allocated;
    return memory + kHeader;
}
void operator delete(void* memory) noexcept {
    if (!memory) return;
    char* const start = static_cast<char*>(memory) - kHeader;
    allocated -= *reinterpret_cast<std::size_t*>(start);
    std::free(start);
}
void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}

int main(int count, char** arguments) {
    if (count != 3) return 1;
    const auto answer = win::ReadWholeFile(arguments[1]);
    if (!answer) return 1;
    const std::int64_t now = downloader::SecondsNow();
    constexpr int rounds = 15;
    std::size_t peak = 0;
    for (int round = -1; round < rounds; ++round) {
        const std::size_t before = allocated;
        most = allocated;
        const double began = bench::Milliseconds();
        const bool isMade = downloader::AlertsXml(*answer, now).has_value();
        const double made = bench::Milliseconds();
        peak = most - before;
        const bool isJson = nlohmann::json::accept(*answer);
        const double parsed = bench::Milliseconds();
        if (!isMade || !isJson) return 1;
        if (round >= 0) std::printf("%.3f %.3f\n", made - began, parsed - made);
    }
    std::printf("%u %u\n", static_cast<unsigned>(answer->size()), static_cast<unsigned>(peak));
    std::printf("%.3f\n", SlowestLookUp(arguments[2]));
    return 0;
}
