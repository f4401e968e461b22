#include "stations/StationList.h"

#include "settings/ProgramState.h"
#include "stations/StationLineRules.h"
#include "win/Files.h"
#include "win/Messages.h"

namespace stations {

std::string StationFilePath() {
    return settings::State().dataFolder + "\\CityCode.cmb";
}

void LoadStationList() {
    const std::string path = StationFilePath();
    if (!win::FileExists(path)) return;
    // Messages run before the list changes hands, so that no one meets it half filled.
    win::PumpPendingMessages();
    std::vector<std::string> lines = ReadStationFile(path);
    settings::ProgramState& state = settings::State();
    state.stationCount = lines.size();
    lines.resize(GrownArraySize(lines.size()));
    state.stations = std::move(lines);
}

void SetStationList(const std::vector<std::string>& entries) {
    settings::ProgramState& state = settings::State();
    state.stations = entries;
    if (entries.empty()) state.stations.resize(1);
}

std::vector<std::string> ReadStationFile(const std::string& path) {
    return ReadStationLines(win::ReadWholeFile(path).value_or(std::string()));
}

bool WriteStationFile(const std::vector<std::string>& entries, const std::string& path) {
    return win::ReplaceFileWhole(path, WriteStationLines(entries));
}

std::string StationAt(std::size_t index) {
    const auto& lines = settings::State().stations;
    return index < lines.size() ? lines[index] : std::string();
}

}  // namespace stations
