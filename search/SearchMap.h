#pragma once
#include <optional>
#include <string>

#include "win/XmlDocument.h"

// The map of the search dialog: its page file, its centre, and the clicks on its stations.
namespace search {

// Writes the map page for the stations of a document (null: none) into the data folder and returns
// its path. Returns nullopt when the template is missing or the page cannot be written.
std::optional<std::string> WriteMapPage(const win::XmlDocument& document);

// Writes that page and shows it. Returns false when it cannot be written.
bool ShowMapPage(const win::XmlDocument& document);

// Centres the map on the selected station. Failures are ignored.
void CenterMap();
// Returns the map to its overall view. The program does not call it: a new list has a new page.
void ResetMap();
// Selects the station that was last clicked on the map, if it was not read before.
void CityClickedTimer_Timer();

}  // namespace search
