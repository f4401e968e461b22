#include "tray/ShowAlerts.h"

#include <windows.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "alerts/AlertPage.h"
#include "alerts/PlaceAnswers.h"
#include "alerts/StoredAlerts.h"
#include "settings/Addresses.h"
#include "settings/Folders.h"
#include "settings/IniOpenSave.h"
#include "settings/IniText.h"
#include "settings/ProgramState.h"
#include "stations/StationLine.h"
#include "tray/TrayWindow.h"
#include "win/CodePage.h"
#include "win/Dates.h"
#include "win/Files.h"
#include "win/Shell.h"

namespace tray {
namespace {

// Returns the station codes, each once, the chosen one first.
std::vector<std::string> CodesInOrder(const std::string& chosen) {
    std::vector<std::string> codes{chosen};
    for (const std::string& line : settings::State().stations) {
        const auto code = stations::StationCode(line);
        if (code && !code->empty() && std::ranges::find(codes, *code) == codes.end())
            codes.push_back(*code);
    }
    return codes;
}

// Returns the names of all stations with the code; the code itself if there is none.
std::string NameOf(const std::string& code) {
    std::string names;
    for (const std::string& line : settings::State().stations)
        if (stations::StationCode(line) == code)
            names.append(names.empty() ? "" : ", ").append(stations::DisplayText(line));
    return names.empty() ? code : names;
}

// Whether an answer is older than twice the update interval and than an hour.
bool IsOld(const alerts::PlaceAnswer& answer) {
    constexpr std::uint64_t kMinute = 60'000;
    std::uint64_t longest = 60 * kMinute;
    for (const auto& interval : settings::kIntervals)
        if (interval.caption == settings::State().autoUpdateInterval)
            longest = std::max(longest, 2 * kMinute * static_cast<unsigned>(interval.minutes));
    return GetTickCount64() - answer.tick > longest;
}

alerts::PageData Collect(const std::string& chosen) {
    // First, because it handles messages.
    const auto section = settings::ReadSection(settings::kAlerts);
    const std::string feed = settings::FeedHost();
    alerts::PageData data;
    data.written = win::GeneralDateNow();
    data.source = settings::OwnSourceName();
    if (settings::UseIni == settings::kUseIniStore) data.longestStored = settings::kIniValueLimit;
    for (const std::string& code : CodesInOrder(chosen)) {
        alerts::PagePlace place;
        place.name = NameOf(code);
        place.answer = alerts::FindAnswer(code, feed);
        place.isOld = place.answer.isKnown && IsOld(place.answer);
        if (!place.answer.isKnown && section) place.stored = alerts::StoredAlerts(*section, code);
        place.forecast = settings::ForecastPage(code);
        place.allAlerts = settings::AllAlertsPage(code);
        data.places.push_back(std::move(place));
    }
    return data;
}

}  // namespace

void ShowAlerts(const std::string& code) {
    const std::string page = alerts::BuildAlertPage(Collect(code));
    const std::string path = settings::State().dataFolder + "\\Alerts.html";
    settings::MakeDataFolder();
    if (win::WriteFileAtomically(path, win::ToUtf8(win::ToWide(page))) &&
        win::OpenDocument(TrayWindow(), path))
        return;
    win::OpenInBrowser(TrayWindow(), settings::SubstitutePage(code));
}

}  // namespace tray
