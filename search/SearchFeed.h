#pragma once
#include <string>
#include <vector>

#include "search/NodeRows.h"
#include "win/XmlDocument.h"

namespace search {

// The attributes of the elements at the path (which ends in "/") that are named as the first one
// there is; empty when there is none.
std::vector<NodeRow> ReadRows(const win::XmlDocument& document, const std::string& path);

}  // namespace search
