#include "search/SearchMap.h"

#include "search/MapPage.h"
#include "search/SearchForm.h"
#include "search/resource.h"
#include "settings/ProgramState.h"
#include "win/Files.h"
#include "win/ListView.h"

namespace search {
namespace {

constexpr char kCenterElement[] = "ResetCenter";
constexpr char kClickedElement[] = "SVSelectedCity";

}  // namespace

std::optional<std::string> WriteMapPage(const win::XmlDocument& document) {
    const std::string folder = settings::State().dataFolder + "\\HTML\\";
    const auto pageTemplate = win::ReadWholeFile(folder + "CitySearch.sv");
    const auto xml = document ? win::DocumentUtf8(document) : std::string();
    if (!pageTemplate || !xml) return std::nullopt;
    std::string path = folder + "CitySearch.html";
    if (!win::OverwriteFile(path, MakeMapPage(*pageTemplate, *xml))) return std::nullopt;
    return path;
}

bool ShowMapPage(const win::XmlDocument& document) {
    const auto page = WriteMapPage(document);
    if (page) Form().browser.Navigate(*page);
    return page.has_value();
}

void CenterMap() {
    const int row = win::SelectedListRow(Control(frmSearch_StationList));
    const auto index = static_cast<std::size_t>(row);
    const StationTable& stations = Form().stations;
    if (row < 0 || index >= stations.latitudes.size() || index >= stations.longitudes.size())
        return;
    if (const auto markup = MakeCenterMarkup(stations.latitudes[index], stations.longitudes[index]))
        Form().browser.WriteElement(kCenterElement, *markup);
}

void ResetMap() {
    Form().browser.WriteElement(kCenterElement, MakeOverallViewMarkup());
}

void CityClickedTimer_Timer() {
    SearchForm& form = Form();
    const int rows = win::CountListRows(Control(frmSearch_StationList));
    if (rows == 0) {
        KillTimer(form.window, frmSearch_CityClickedTimer);
        return;
    }
    if (!form.browser.BodyContains(kClickedElement)) return;
    const auto clicked = form.browser.ReadElement(kClickedElement);
    if (!clicked || *clicked == form.lastClickedStation) return;
    const auto& identifiers = form.stations.identifiers;
    for (int row = 0; row < rows && static_cast<std::size_t>(row) < identifiers.size(); ++row)
        if (identifiers[static_cast<std::size_t>(row)] == *clicked) SelectStation(row);
    form.lastClickedStation = *clicked;
}

}  // namespace search
