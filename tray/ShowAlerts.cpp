#include "tray/ShowAlerts.h"

#include <windows.h>

#include <algorithm>
#include <map>
#include <optional>
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
    // First, because both reads handle messages. The second is slow in a registry of many values.
    const std::string feed = settings::FeedHost();
    const auto isKnown = [&feed](const std::string& code) {
        return alerts::FindAnswer(code, feed).isKnown;
    };
    std::optional<std::map<std::string, std::string>> section;
    if (!std::ranges::all_of(CodesInOrder(chosen), isKnown))
        section = settings::ReadSection(settings::kAlerts);
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
        place.source = settings::SourcePage(code);
        place.sourceTitle = settings::SourcePageTitle(code);
        data.places.push_back(std::move(place));
    }
    return data;
}

}  // namespace

bool WriteAlertPage(const std::string& code, const std::string& path) {
    const std::string page = alerts::BuildAlertPage(Collect(code));
    // The values of an INI file need not be UTF-8, but the page must be.
    return win::WriteFileAtomically(path, win::FromWide(win::ToWide(page)));
}

void ShowAlerts(const std::string& code) {
    settings::MakeDataFolder();
    const std::string path = settings::State().dataFolder + "\\Alerts.html";
    if (WriteAlertPage(code, path) && win::OpenDocument(TrayWindow(), path)) return;
    win::OpenInBrowser(TrayWindow(), settings::SubstitutePage(code));
}

}  // namespace tray
