#include "search/SearchFeed.h"

namespace search {

std::vector<NodeRow> ReadRows(const win::XmlDocument& document, const std::string& path) {
    std::vector<NodeRow> rows;
    const win::XmlNodeList any = win::SelectNodes(document, (path + "*").c_str());
    const win::XmlNode first = any ? win::NextNode(any) : nullptr;
    if (!first) return rows;
    const win::XmlNodeList named =
        win::SelectNodes(document, (path + win::NodeName(first)).c_str());
    if (!named) return rows;
    while (const win::XmlNode node = win::NextNode(named))
        rows.push_back(win::NodeAttributes(node));
    return rows;
}

}  // namespace search
