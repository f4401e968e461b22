#include "stations/StationList.h"

#include "settings/ProgramState.h"
#include "stations/StationLine.h"
#include "win/Files.h"
#include "win/MessageLoop.h"

namespace stations {

static bool isUnread = false;

std::string StationFilePath() {
    return settings::State().dataFolder + "\\CityCode.cmb";
}

void LoadStationList() {
    // Before the list changes, so that no message handler sees it half filled.
    win::PumpPendingMessages();
    const std::string path = StationFilePath();
    auto lines = ReadStationFile(path);
    isUnread = !lines;
    if (!lines || win::IsFileMissing(path)) return;
    settings::ProgramState& state = settings::State();
    state.stationCount = lines->size();
    lines->resize(GrownArraySize(lines->size()));
    state.stations = std::move(*lines);
}

bool IsStationListUnread() {
    return isUnread;
}

bool LoadUnreadStationList() {
    if (!isUnread) return false;
    LoadStationList();
    return !isUnread;
}

void SetStationList(const std::vector<std::string>& entries) {
    settings::ProgramState& state = settings::State();
    state.stations = entries;
    if (entries.empty()) state.stations.resize(1);
}

std::optional<std::vector<std::string>> ReadStationFile(const std::string& path) {
    if (win::IsFileMissing(path)) return std::vector<std::string>();
    const auto text = win::ReadWholeFile(path);
    if (!text) return std::nullopt;
    return ReadStationLines(*text);
}

bool WriteStationFile(const std::vector<std::string>& entries, const std::string& path) {
    return win::WriteFileAtomically(path, WriteStationLines(entries));
}

std::string StationAt(std::size_t index) {
    const auto& lines = settings::State().stations;
    return index < lines.size() ? lines[index] : std::string();
}

}  // namespace stations
