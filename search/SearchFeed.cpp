#include "search/SearchFeed.h"

#include "alerts/modDownloader.h"

namespace search {

FeedAnswer FetchDocument(const std::string& address, bool (*isCancelled)()) {
    alerts::Download download(address, alerts::kSearchPrefix);
    download.Wait(isCancelled);
    if (isCancelled()) return {};
    return {download.Succeeded(), win::LoadXmlFile(download.DataFile())};
}

std::vector<win::XmlAttributes> ReadElements(const win::XmlDocument& document,
                                             const std::string& path) {
    std::vector<win::XmlAttributes> elements;
    const win::XmlNodeList all = win::SelectNodes(document, (path + "*").c_str());
    const win::XmlNode first = all ? win::NextNode(all) : nullptr;
    if (!first) return elements;
    const win::XmlNodeList named =
        win::SelectNodes(document, (path + win::NodeName(first)).c_str());
    if (!named) return elements;
    while (const win::XmlNode node = win::NextNode(named))
        elements.push_back(win::NodeAttributes(node));
    return elements;
}

}  // namespace search
