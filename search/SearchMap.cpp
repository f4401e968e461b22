#include "search/MapPageRules.h"
#include "search/SearchForm.h"
#include "search/resource.h"
#include "win/ListView.h"

namespace search {
namespace {

constexpr char kResetElement[] = "ResetCenter";
constexpr char kClickElement[] = "SVSelectedCity";

}  // namespace

void CenterMap() {
    const int row = win::SelectedListRow(Control(frmSearch_StationList));
    const auto index = static_cast<std::size_t>(row);
    const StationTable& stations = Form().stations;
    if (row < 0 || index >= stations.latitudes.size() || index >= stations.longitudes.size())
        return;
    if (const auto markup = CenterMarkup(stations.latitudes[index], stations.longitudes[index]))
        Form().browser.WriteElement(kResetElement, *markup);
}

void ResetMap() {
    Form().browser.WriteElement(kResetElement, OverallViewMarkup());
}

void CityClickedTimer_Timer() {
    SearchForm& form = Form();
    const int rows = win::CountListRows(Control(frmSearch_StationList));
    if (rows == 0) {
        KillTimer(form.window, frmSearch_CityClickedTimer);
        return;
    }
    if (!form.browser.BodyHolds(kClickElement)) return;
    const auto clicked = form.browser.ReadElement(kClickElement);
    if (!clicked || *clicked == form.lastClickedStation) return;
    const auto& identifiers = form.stations.identifiers;
    for (int row = 0; row < rows && static_cast<std::size_t>(row) < identifiers.size(); ++row)
        if (identifiers[static_cast<std::size_t>(row)] == *clicked) SelectStation(row);
    form.lastClickedStation = *clicked;
}

}  // namespace search
