#include "search/MapPage.h"

#include "search/MapPageRules.h"
#include "settings/ProgramState.h"
#include "win/Files.h"

namespace search {

std::optional<std::string> WriteMapPage(const win::XmlDocument& document) {
    const std::string folder = settings::State().dataFolder + "\\HTML\\";
    const auto pageTemplate = win::ReadWholeFile(folder + "CitySearch.sv");
    const auto xml = document ? win::DocumentUtf8(document) : std::string();
    if (!pageTemplate || !xml) return std::nullopt;
    std::string path = folder + "CitySearch.html";
    if (!win::OverwriteFile(path, MapPage(*pageTemplate, *xml))) return std::nullopt;
    return path;
}

}  // namespace search
