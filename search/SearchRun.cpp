#include <vector>

#include "alerts/modDownloader.h"
#include "search/LocationTableRules.h"
#include "search/MapPage.h"
#include "search/SearchFeed.h"
#include "search/SearchForm.h"
#include "search/SearchRequestRules.h"
#include "search/StationRows.h"
#include "search/frmSearchChoose.h"
#include "search/resource.h"
#include "settings/Hosts.h"
#include "win/Dialog.h"
#include "win/ListView.h"
#include "win/Messages.h"
#include "win/Text.h"

namespace search {
namespace {

constexpr char kTempPrefix[] = "SVA";
constexpr char kNothingFound[] = "0 weather stations found.";
constexpr UINT kPollMilliseconds = 50;
constexpr DWORD kBusyMilliseconds = 15;

// What the stations are looked up for and how they are then listed.
struct Target {
    Place place;
    bool listByZipCode = true;
};

bool IsFormClosing() {
    return Form().isClosing;
}

std::string FeedAddress(const std::string& query) {
    return settings::FeedHost() + settings::kFeedRequest + query;
}

void EnableForm(bool enable) {
    for (const int control :
         {frmSearch_Command1, frmSearch_Command2, frmSearch_Text1, frmSearch_StationList})
        EnableWindow(Control(control), enable);
    EnableWindow(Control(frmSearch_Command3),
                 enable && win::CountListRows(Control(frmSearch_StationList)) > 0);
}

void BeginSearch() {
    SearchForm& form = Form();
    ++form.runsOnStack;
    ++form.runNumber;
    EnableWindow(form.stationCombo, FALSE);
    SetWaitPointer(true);
    EnableForm(false);
    form.stations = StationTable();
    const HWND list = Control(frmSearch_StationList);
    SendMessageA(list, LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(form.images.Get()));
    SetStatus("Searching for available locations...");
    ShowStationRows({});
}

// Lets the user pick one of several locations; nothing ends the search.
std::optional<Target> ChooseTarget(const std::vector<Location>& locations) {
    SetWaitPointer(false);
    const auto row =
        ShowLocationChooser(Form().window, ChooserRows(locations), Form().images.Get());
    if (!row || Form().isClosing) {
        SetStatus(kNothingFound);
        return std::nullopt;
    }
    SetWaitPointer(true);
    const auto place = PlaceOf(SelectedLocation(locations, *row));
    if (!place) return std::nullopt;
    return Target{*place, place->byZipCode};
}

// The only location found; whatever its type, its stations are listed as those of a ZIP code.
std::optional<Target> SingleTarget(const Location& location) {
    const auto byZipCode = IsByZipCode(location.type);
    if (!byZipCode) return std::nullopt;
    return Target{{location.code, *byZipCode}, true};
}

// Finds the place that the text means; nothing ends the search, the status being set.
std::optional<Target> FindTarget(const std::string& text) {
    if (win::IsNumeric(text)) return Target{{text, true}, true};
    LocationTable table;
    {
        alerts::Download download(FeedAddress(LocationQuery(text)), kTempPrefix);
        download.Wait(IsFormClosing);
        if (Form().isClosing) return std::nullopt;
        if (!download.Succeeded()) {
            SetStatus("Server not found!");
            return std::nullopt;
        }
        // What is no XML, and a table that could not be read, end the search without a word.
        const win::XmlDocument document = win::LoadXmlFile(download.DataFile());
        if (!document) return std::nullopt;
        table = ReadLocations(ReadRows(document, "aws:weather/aws:locations/"));
        if (table.failed) return std::nullopt;
    }
    if (table.locations.empty()) {
        SetStatus(kNothingFound);
        return std::nullopt;
    }
    return table.locations.size() == 1 ? SingleTarget(table.locations.front())
                                       : ChooseTarget(table.locations);
}

// Shows the stations of the document on the map, or an empty map for a null document; false when
// the page cannot be written.
bool ShowMapPage(const win::XmlDocument& document) {
    const auto page = WriteMapPage(document);
    if (page) Form().browser.Navigate(*page);
    return page.has_value();
}

// Fetches the stations of the place, shows them on the map and keeps them in the table.
bool LookUpStations(const Place& place) {
    SetStatus("Searching for available weather stations...");
    alerts::Download download(FeedAddress(StationQuery(place)), kTempPrefix);
    download.Wait(IsFormClosing);
    if (Form().isClosing) return false;
    const win::XmlDocument document = win::LoadXmlFile(download.DataFile());
    if (Form().isClosing) return false;
    if (!ShowMapPage(document) || !document) return false;
    auto stations = ReadStations(ReadRows(document, "aws:weather/"));
    if (!stations) return false;
    Form().stations = std::move(*stations);
    return true;
}

void FillStationList(bool listByZipCode) {
    if (Form().stations.identifiers.size() > 1)
        SetTimer(Form().window, frmSearch_CityClickedTimer, kPollMilliseconds, nullptr);
    auto rows = ListRows(Form().stations, listByZipCode);
    if (!rows) return;
    SetStatus(win::Decimal(static_cast<long long>(rows->size())) + " weather station(s) found.");
    ShowStationRows(std::move(*rows));
}

void RunSearch(const std::string& text) {
    const auto target = FindTarget(text);
    if (Form().isClosing) return;
    if (!target)
        ShowMapPage(nullptr);  // the list is empty, too
    else if (LookUpStations(target->place))
        FillStationList(target->listByZipCode);
    else
        SetStatus(kNothingFound);
}

// Waits for the page to be there; false when the dialog or a newer search has gone on meanwhile.
bool WaitForMap() {
    const int run = Form().runNumber;
    while (!Form().isClosing && Form().runNumber == run && Form().browser.IsBusy())
        win::PumpOrWait(kBusyMilliseconds);
    return !Form().isClosing && Form().runNumber == run;
}

// There is a browser control but nothing behind it that could show a page: the list has the room.
void DoWithoutMap() {
    Form().browser.Remove();
    Form().layout.Apply(nullptr);
    win::FillLastListColumn(Control(frmSearch_StationList), Form().rows.size());
}

void EndSearch() {
    const HWND list = Control(frmSearch_StationList);
    const bool hasRows = win::CountListRows(list) > 0;
    win::SetControlText(Form().window, frmSearch_Text1, "");
    // Only what is on takes the focus; the buttons come on when the focus is where it belongs.
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
        if (!Form().browser.HasDocument()) DoWithoutMap();
        CenterMap();
        if (IsChild(Form().browser.Window(), GetFocus())) SetFocus(list);  // taken by the new page
    }
    SetWaitPointer(false);
}

}  // namespace

void Command1_Click() {
    const std::string text = win::ControlText(Form().window, frmSearch_Text1);
    if (win::TrimBlanks(text).empty() || !IsWindowEnabled(Control(frmSearch_Command1))) return;
    BeginSearch();
    RunSearch(text);
    if (!Form().isClosing) EndSearch();
    if (--Form().runsOnStack == 0 && Form().isClosing) CloseForm();
}

}  // namespace search
