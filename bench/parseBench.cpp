// Parses feed documents of 0, 10, 100 and 1,000 alerts and stores them in an empty store of the
// given kind (ini or registry). Prints a line per run: alerts, milliseconds.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "alerts/AlertReader.h"
#include "bench/Stopwatch.h"
#include "settings/IniOpenSave.h"
#include "settings/ProgramState.h"
#include "win/Files.h"
#include "win/Text.h"

namespace {

// Returns a document with alerts with different identifiers and bodies of about 400 bytes.
std::string MakeDocument(int alerts) {
    std::string text = "<aws:weather xmlns:aws=\"http://www.aws.com/aws\"><aws:alerts>";
    for (int i = 0; i < alerts; ++i) {
        text += "<aws:alert><aws:id>KTOP-TO-W-" + win::Decimal(10000 + i) +
                "</aws:id><aws:title>Tornado Warning</aws:title><aws:html-msg-body>";
        for (int sentence = 0; sentence < 5; ++sentence)
            text +=
                "A SEVERE THUNDERSTORM CAPABLE OF PRODUCING A TORNADO IS  MOVING EAST AT 30 MPH. ";
        text += "</aws:html-msg-body></aws:alert>";
    }
    return text + "</aws:alerts></aws:weather>";
}

std::string DocumentPath(int alerts) {
    return win::ExecutableFolder() + "\\" + win::Decimal(alerts) + ".xml";
}

double TimeOnce(int alerts) {
    const std::string path = DocumentPath(alerts);
    settings::DeleteSettingSection(settings::kAlerts);
    win::DeleteFileQuietly(win::ExecutableFolder() + "\\" + settings::IniUserName + ".ini");
    settings::State().oldAlerts.clear();
    const double began = bench::Milliseconds();
    alerts::AlertReader reader(path, "66044");
    while (!reader.ReadSome()) {
    }
    const auto found = static_cast<int>(reader.Identifiers().size());
    settings::StoreHeldSettings();
    const double ended = bench::Milliseconds();
    if (found != alerts) {
        std::printf("failed: %d of %d alerts\n", found, alerts);
        std::exit(1);
    }
    return ended - began;
}

}  // namespace

int main(int count, char** arguments) {
    const bool ini = count > 1 && std::strcmp(arguments[1], "ini") == 0;
    settings::UseIni = ini ? settings::kUseIniStore : settings::kUseRegistryStore;
    settings::IniUserName = ini ? "bench" : "";
    constexpr int kSizes[] = {0, 10, 100, 1000};
    for (const int size : kSizes) win::WriteFileAtomically(DocumentPath(size), MakeDocument(size));
    // The sizes alternate so that other load affects all of them. Small ones run more often because
    // noise affects them more.
    constexpr int kRounds = 15;
    for (int round = -1; round < kRounds; ++round) {
        for (const int size : kSizes) {
            for (int turn = 0; turn < (size < 1000 ? 10 : 1); ++turn) {
                const double milliseconds = TimeOnce(size);
                if (round >= 0) std::printf("%d %.3f\n", size, milliseconds);  // the first warms up
            }
        }
    }
    return 0;
}
