// Measures the time from an answer of 500 stations to the filled list, and the time that the XML
// library alone needs to load and read that answer. Prints a line per run: "search" or "xml",
// milliseconds.
#include <windows.h>
#include <commctrl.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "bench/Stopwatch.h"
#include "search/resource.h"
#include "search/SearchFeed.h"
#include "search/SearchForm.h"
#include "search/SearchMap.h"
#include "search/StationRows.h"
#include "settings/ProgramState.h"
#include "win/Files.h"
#include "win/LateFunctions.h"
#include "win/ListView.h"
#include "win/Text.h"
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

// Reads the name and text of every attribute, as any reader of the answer must.
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
            win::late::SysFreeString(name);
            win::late::SysFreeString(text);
        }
    }
    return bench::Milliseconds() - began;
}

double TimeSearch(const std::string& path) {
    search::ShowStationRows({});
    const double began = bench::Milliseconds();
    const win::XmlDocument document = win::LoadXmlFile(path);
    const auto page = search::WriteMapPage(document);
    const auto table = search::ReadStations(search::ReadElements(document, "aws:weather/"));
    search::ShowStationRows(*search::MakeListRows(*table, true));
    const double ended = bench::Milliseconds();
    if (!page || search::Form().rows.size() != 500) {
        std::puts("failed");
        std::exit(1);
    }
    return ended - began;
}

LRESULT CALLBACK FormProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* note = reinterpret_cast<NMHDR*>(lParam);
    if (message == WM_NOTIFY && note->code == static_cast<UINT>(LVN_GETDISPINFOA))
        search::ProvideStationCell(reinterpret_cast<NMLVDISPINFOW&>(*note));
    return DefWindowProcA(window, message, wParam, lParam);
}

// Creates a window with the same list as the dialog.
void CreateForm() {
    WNDCLASSA form{};
    form.lpfnWndProc = FormProcedure;
    form.lpszClassName = "searchBench";
    RegisterClassA(&form);
    const HWND window = CreateWindowExA(0, form.lpszClassName, "", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                        0, 0, 500, 400, nullptr, nullptr, nullptr, nullptr);
    constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDATA;
    const HWND list =
        CreateWindowExA(0, WC_LISTVIEWA, "", kStyle, 0, 0, 400, 300, window,
                        reinterpret_cast<HMENU>(frmSearch_StationList), nullptr, nullptr);
    for (const char* header : {"Station Name", "Location", "Data Source"})
        win::AddListColumn(list, header, 120);
    search::Form().window = window;
}

}  // namespace

int main() {
    // The map page's template is in the product folder that the runner creates.
    settings::State().dataFolder = win::ExecutableFolder() + "\\..\\product";
    const std::string path = win::ExecutableFolder() + "\\stations.xml";
    win::WriteFileAtomically(path, MakeAnswer());
    INITCOMMONCONTROLSEX controls{sizeof controls, ICC_LISTVIEW_CLASSES};
    win::late::InitCommonControlsEx(&controls);
    CreateForm();
    for (int round = -1; round < 15; ++round) {
        const double xml = TimeXml(path);
        const double search = TimeSearch(path);
        if (round >= 0) std::printf("xml %.3f\nsearch %.3f\n", xml, search);
    }
    win::DeleteFileQuietly(settings::State().dataFolder + "\\HTML\\CitySearch.html");
    return 0;
}
