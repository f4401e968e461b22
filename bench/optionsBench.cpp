// Opens the Options dialog in turn with no stations and filter words and with 500 stations and 200
// words. Prints a line per opening: stations, milliseconds from the call to the painted dialog.
#include <windows.h>

#include <cstdio>
#include <string>
#include <vector>

#include "bench/Stopwatch.h"
#include "options/frmOptions.h"
#include "settings/IniOpenSave.h"
#include "settings/ProgramState.h"
#include "stations/StationLine.h"
#include "stations/StationList.h"
#include "win/Files.h"
#include "win/Text.h"

namespace {

double opened = 0;

void CALLBACK CloseWhenOpen(HWND, UINT, UINT_PTR timer, DWORD) {
    const HWND dialog = FindWindowA("#32770", "Options - Skyvane Alerts");
    if (!dialog || !IsWindowVisible(dialog)) return;
    RedrawWindow(dialog, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    opened = bench::Milliseconds();
    KillTimer(nullptr, timer);
    PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
}

double TimeOnce(int stationCount, int wordCount) {
    std::vector<std::string> lines;
    for (int i = 0; i < stationCount; ++i)
        lines.push_back(
            stations::MakeStationLine("Some Place, KS (Station " + win::Decimal(i) + ")",
                                      {"ID", win::Decimal(10000 + i), "38.9", "-95.2"}));
    stations::WriteStationFile(lines, stations::StationFilePath());
    std::vector<std::string> words;
    for (int i = 0; i < wordCount; ++i) words.push_back("w" + win::Decimal(i));
    settings::WriteSetting(settings::kAlertFilters, win::Join(words, settings::kFilterSeparator));
    SetTimer(nullptr, 0, 1, CloseWhenOpen);
    const double began = bench::Milliseconds();
    options::ShowOptionsDialog();
    return opened - began;
}

}  // namespace

int main() {
    settings::UseIni = settings::kUseRegistryStore;
    settings::State().programFolder = win::ExecutableFolder();
    settings::State().dataFolder = win::ExecutableFolder();
    TimeOnce(0, 0);
    for (int round = 0; round < 15; ++round) {
        std::printf("0 %.3f\n", TimeOnce(0, 0));
        std::printf("500 %.3f\n", TimeOnce(500, 200));
    }
    settings::DeleteSettingSection(settings::kOptions);
    return 0;
}
