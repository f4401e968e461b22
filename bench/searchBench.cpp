// From an answer of 500 stations to the filled list, against what the XML library alone takes to
// load and walk it. Prints a line per run: "search" or "xml", milliseconds.
#include <windows.h>
#include <commctrl.h>

#include <cstdio>
#include <string>

#include "bench/Stopwatch.h"
#include "search/MapPage.h"
#include "search/SearchFeed.h"
#include "search/StationTableRules.h"
#include "settings/ProgramState.h"
#include "win/Files.h"
#include "win/ListView.h"
#include "win/TextRules.h"
#include "win/XmlDocument.h"

namespace {

constexpr char kStations[] = "aws:weather/aws:station";

std::string MakeAnswer() {
    std::string text = "<?xml version=\"1.0\"?><aws:weather xmlns:aws=\"http://www.aws.com/aws\">";
    for (int i = 0; i < 500; ++i)
        text += "<aws:station id=\"K" + win::Decimal(1000 + i) + "\" name=\"Station " +
                win::Decimal(i) +
                "\" city=\"Some Place\" state=\"KS\" zipcode=\"66044\" station-type=\"WeatherBug\" "
                "latitude=\"38.9\" longitude=\"-95.2\"/>\r\n";
    return text + "</aws:weather>";
}

// Every attribute's name and text, as any reader of the answer must ask for them.
double TimeXml(const std::string& path) {
    const double began = bench::Milliseconds();
    const win::XmlDocument document = win::LoadXmlFile(path);
    const win::XmlNodeList nodes = win::SelectNodes(document, kStations);
    while (const win::XmlNode node = win::NextNode(nodes)) {
        Microsoft::WRL::ComPtr<IXMLDOMNamedNodeMap> attributes;
        long count = 0;
        if (FAILED(node->get_attributes(&attributes)) || FAILED(attributes->get_length(&count)))
            return 0;
        for (long i = 0; i < count; ++i) {
            win::XmlNode attribute;
            BSTR name = nullptr;
            BSTR text = nullptr;
            attributes->get_item(i, &attribute);
            attribute->get_baseName(&name);
            attribute->get_text(&text);
            SysFreeString(name);
            SysFreeString(text);
        }
    }
    return bench::Milliseconds() - began;
}

double TimeSearch(const std::string& path, HWND list) {
    win::ClearList(list);
    const double began = bench::Milliseconds();
    const win::XmlDocument document = win::LoadXmlFile(path);
    const auto page = search::WriteMapPage(document);
    const auto table = search::ReadStations(search::ReadRows(document, "aws:weather/"));
    const auto rows = search::ListRows(*table, true);
    SendMessageA(list, WM_SETREDRAW, FALSE, 0);
    for (const search::ListRow& row : *rows)
        win::AddListRow(list, row.icon - 1, {row.name, row.location, row.dataSource});
    SendMessageA(list, WM_SETREDRAW, TRUE, 0);
    win::ResizeListViewColumns(list);
    return page && win::CountListRows(list) == 500 ? bench::Milliseconds() - began : 0;
}

}  // namespace

int main() {
    // The map page's template is the product's own, in the folder that the runner lays out.
    settings::State().dataFolder = win::ExecutableFolder() + "\\..\\product";
    const std::string path = win::ExecutableFolder() + "\\stations.xml";
    win::ReplaceFileWhole(path, MakeAnswer());
    INITCOMMONCONTROLSEX controls{sizeof controls, ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&controls);
    const HWND window =
        CreateWindowExA(0, "STATIC", "", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 500, 400, nullptr,
                        nullptr, nullptr, nullptr);
    const HWND list = CreateWindowExA(0, WC_LISTVIEWA, "", WS_CHILD | WS_VISIBLE | LVS_REPORT, 0, 0,
                                      400, 300, window, nullptr, nullptr, nullptr);
    for (const char* header : {"Station Name", "Location", "Data Source"})
        win::AddListColumn(list, header, 120);
    for (int round = -1; round < 15; ++round) {
        const double xml = TimeXml(path);
        const double search = TimeSearch(path, list);
        if (round >= 0) std::printf("xml %.3f\nsearch %.3f\n", xml, search);
    }
    win::DeleteFileQuietly(settings::State().dataFolder + "\\HTML\\CitySearch.html");
    return 0;
}
