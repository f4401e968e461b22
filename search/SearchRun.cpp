#include "search/SearchRun.h"

#include <vector>

#include "search/LocationTable.h"
#include "search/SearchFeed.h"
#include "search/SearchForm.h"
#include "search/SearchMap.h"
#include "search/StationRows.h"
#include "search/frmSearchChoose.h"
#include "search/resource.h"
#include "settings/Addresses.h"
#include "win/Dialog.h"
#include "win/ListView.h"
#include "win/MessageLoop.h"
#include "win/Text.h"

namespace search {
namespace {

constexpr char kNothingFound[] = "0 weather stations found.";
constexpr UINT kPollMilliseconds = 50;
constexpr DWORD kBusyMilliseconds = 15;

// The place that stations are looked up for and the way they are listed.
struct Target {
    Place place;
    bool listAsZipCode = true;
};

void EnableForm(bool enable) {
    for (const int control :
         {frmSearch_Command1, frmSearch_Command2, frmSearch_Text1, frmSearch_StationList})
        EnableWindow(Control(control), enable);
    EnableWindow(Control(frmSearch_Command3),
                 enable && win::CountListRows(Control(frmSearch_StationList)) > 0);
}

void BeginSearch() {
    SearchForm& form = Form();
    ++form.activeSearches;
    ++form.searchNumber;
    EnableWindow(form.stationCombo, FALSE);
    SetWaitPointer(true);
    EnableForm(false);
    form.stations = StationTable();
    const HWND list = Control(frmSearch_StationList);
    SendMessageW(list, LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(form.images.Get()));
    SetStatus("Searching for available locations...");
    ShowStationRows({});
}

// Lets the user choose one of several locations. Returns nullopt when the search ends here.
std::optional<Target> ChooseTarget(const std::vector<Location>& locations) {
    SetWaitPointer(false);
    const auto row = ShowLocationChooser(Form().window, MakeChooserRows(locations));
    if (!row || Form().isClosing) {
        SetStatus(kNothingFound);
        return std::nullopt;
    }
    SetWaitPointer(true);
    const auto place = FindChosenPlace(locations, *row);
    if (!place) return std::nullopt;
    return Target{*place, place->isZipCode};
}

// Returns the target of the only location found. Its stations are listed as those of a ZIP code,
// whatever its type.
std::optional<Target> UseSingleLocation(const Location& location) {
    const auto place = FindPlace(location);
    if (!place) return std::nullopt;
    return Target{*place, true};
}

// Finds the place for the text. Returns nullopt, with the status set, when the search ends here. An
// answer that is not XML or not a usable table ends it without a message.
std::optional<Target> FindTarget(const std::string& text) {
    if (win::IsNumeric(text)) return Target{{text, true}, true};
    const FeedAnswer answer = FetchDocument(settings::LocationsRequest(text), IsFormClosing);
    if (Form().isClosing) return std::nullopt;
    if (!answer.succeeded) {
        SetStatus("Server not found!");
        return std::nullopt;
    }
    if (!answer.document) return std::nullopt;
    const LocationTable table =
        ReadLocations(ReadElements(answer.document, "aws:weather/aws:locations/"));
    if (table.failed) return std::nullopt;
    if (table.locations.empty()) {
        SetStatus(kNothingFound);
        return std::nullopt;
    }
    return table.locations.size() == 1 ? UseSingleLocation(table.locations.front())
                                       : ChooseTarget(table.locations);
}

// Fetches the stations of the place, shows them on the map and stores them in the table. Returns
// false when there are none to list.
bool LookUpStations(const Place& place) {
    SetStatus("Searching for available weather stations...");
    const std::string request = settings::StationsRequest(place.code, place.isZipCode);
    const auto document = FetchDocument(request, IsFormClosing).document;
    if (Form().isClosing) return false;
    if (!ShowMapPage(document) || !document) return false;
    auto stations = ReadStations(ReadElements(document, "aws:weather/"));
    if (!stations) return false;
    Form().stations = std::move(*stations);
    return true;
}

void FillStationList(bool listAsZipCode) {
    if (Form().stations.identifiers.size() > 1)
        SetTimer(Form().window, frmSearch_CityClickedTimer, kPollMilliseconds, nullptr);
    auto rows = MakeListRows(Form().stations, listAsZipCode);
    if (!rows) return;
    SetStatus(win::Decimal(static_cast<long long>(rows->size())) + " weather station(s) found.");
    ShowStationRows(std::move(*rows));
}

void RunSearch(const std::string& text) {
    const auto target = FindTarget(text);
    if (Form().isClosing) return;
    if (!target)
        ShowMapPage(nullptr);  // empty, like the list
    else if (LookUpStations(target->place))
        FillStationList(target->listAsZipCode);
    else
        SetStatus(kNothingFound);
}

// Waits until the page is loaded. Returns false when the dialog closes or a newer search begins
// meanwhile.
bool WaitForMap() {
    const int number = Form().searchNumber;
    const auto isCurrent = [&] { return !Form().isClosing && Form().searchNumber == number; };
    while (isCurrent() && Form().browser.IsLoading()) win::PumpOrWait(kBusyMilliseconds);
    return isCurrent();
}

// Removes a browser control that cannot show a page, and gives its space to the list.
void RemoveMap() {
    Form().browser.Remove();
    Form().layout.Apply(nullptr);
    win::FillLastListColumn(Control(frmSearch_StationList), Form().rows.size());
}

void EndSearch() {
    const HWND list = Control(frmSearch_StationList);
    const bool hasRows = win::CountListRows(list) > 0;
    win::SetControlText(Form().window, frmSearch_Text1, "");
    // Only an enabled control takes the focus. The buttons are enabled once the focus is set.
    const HWND next = hasRows ? list : Control(frmSearch_Text1);
    EnableWindow(next, TRUE);
    if (hasRows)
        SelectStation(0);
    else
        win::ResizeListViewColumns(list);
    SetFocus(next);
    EnableForm(true);
    if (hasRows) {
        if (!WaitForMap()) return;
        if (!Form().browser.HasDocument()) RemoveMap();
        CenterMap();
        if (IsChild(Form().browser.Window(), GetFocus())) SetFocus(list);  // the page took focus
    }
    SetWaitPointer(false);
}

}  // namespace

void Command1_Click() {
    const std::string text = win::ControlText(Form().window, frmSearch_Text1);
    if (win::Trim(text).empty() || !IsWindowEnabled(Control(frmSearch_Command1))) return;
    BeginSearch();
    RunSearch(text);
    if (!Form().isClosing) EndSearch();
    if (--Form().activeSearches == 0 && Form().isClosing) CloseForm();
}

}  // namespace search
