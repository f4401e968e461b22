// Writes the page of a place with 60 alerts, which a store of the given kind (ini or registry) also
// holds; the same with a second place that was not retrieved, for which the store is read; and a
// text of the length of the page to a file. Prints a line per run: "page", "stored" or "file",
// milliseconds; then "bytes" and the length of the page.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "alerts/PlaceAnswers.h"
#include "bench/Stopwatch.h"
#include "settings/Addresses.h"
#include "settings/IniOpenSave.h"
#include "settings/ProgramState.h"
#include "stations/StationLine.h"
#include "tray/ShowAlerts.h"
#include "win/Files.h"
#include "win/Text.h"

namespace {

constexpr char kCode[] = "66044";
constexpr int kAlerts = 60;

// Returns a text as long as those of the service's longer alerts, about 2,500 characters.
std::string MakeBody() {
    std::string body = "The National Weather Service has issued a warning.\n\n";
    for (int item = 0; item < 12; ++item)
        body +=
            "* WHAT...A severe thunderstorm capable of producing a tornado is moving east at 30 "
            "mph & is expected to reach the <city> within the next hour. Take cover now in a "
            "basement or an interior room.\n";
    return body + "\nSeverity: Extreme. Urgency: Immediate. Certainty: Observed.";
}

// Keeps the alerts as a retrieval does.
void KeepAlerts() {
    alerts::PlaceAnswer answer;
    answer.isKnown = true;
    answer.retrieved = "noon";
    answer.tick = GetTickCount64();
    for (int n = 0; n < kAlerts; ++n) {
        const std::string number = win::Decimal(n);
        answer.alerts.push_back({"KTOP-" + number, "Tornado Warning", MakeBody()});
        settings::HoldAlertSettings({{settings::kAlertId + number, "KTOP-" + number},
                                     {settings::kAlertZipCode + number, kCode},
                                     {settings::kAlertTitle + number, "Tornado Warning"},
                                     {settings::kAlertBody + number, MakeBody()}});
    }
    settings::StoreHeldSettings();
    alerts::RecordAnswer(kCode, settings::FeedHost(), std::move(answer));
}

// Returns the milliseconds that the page takes.
double TimePage(const std::string& path, const std::vector<std::string>& stations) {
    settings::State().stations = stations;
    const double began = bench::Milliseconds();
    if (!tray::WriteAlertPage(kCode, path)) std::exit(1);
    return bench::Milliseconds() - began;
}

}  // namespace

int main(int count, char** arguments) {
    const bool ini = count > 1 && std::strcmp(arguments[1], "ini") == 0;
    settings::UseIni = ini ? settings::kUseIniStore : settings::kUseRegistryStore;
    settings::IniUserName = ini ? "page" : "";
    KeepAlerts();
    const std::string path = win::ExecutableFolder() + "\\Alerts.html";
    const std::string copy = win::ExecutableFolder() + "\\Copy.html";
    const std::string retrieved = stations::MakeStationLine("Lawrence", {"ID", kCode, "1", "2"});
    const std::string other = stations::MakeStationLine("New York", {"ID", "10001", "1", "2"});
    for (int round = -1; round < 50; ++round) {
        const double stored = TimePage(path, {retrieved, other});
        const double page = TimePage(path, {retrieved});
        const std::string text = win::ReadWholeFile(path).value_or("");
        const double began = bench::Milliseconds();
        if (!win::WriteFileAtomically(copy, text)) return 1;
        const double file = bench::Milliseconds() - began;
        if (round >= 0) std::printf("page %.3f\nstored %.3f\nfile %.3f\n", page, stored, file);
        if (round == 0) std::printf("bytes %u\n", static_cast<unsigned>(text.size()));
    }
    settings::DeleteSettingSection(settings::kAlerts);
    for (const std::string& file : {path, copy, win::ExecutableFolder() + "\\page.ini"})
        win::DeleteFileQuietly(file);
    return 0;
}
