#pragma once
#include <optional>
#include <string>

#include "win/XmlDocument.h"

namespace search {

// Writes the map page for the stations of the document (null: none) into the data folder and gives
// its path; nothing when the template is missing or the page cannot be written.
std::optional<std::string> WriteMapPage(const win::XmlDocument& document);

}  // namespace search
