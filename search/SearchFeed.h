#pragma once
#include <string>
#include <vector>

#include "win/XmlAttribute.h"
#include "win/XmlDocument.h"

// The search's requests to the feed, and the elements of the answers.
namespace search {

struct FeedAnswer {
    bool succeeded = false;     // the download
    win::XmlDocument document;  // null when the answer is not XML
};

// Downloads an address. Messages are handled while it waits; it stops waiting, and returns an empty
// answer, as soon as `isCancelled` returns true.
FeedAnswer FetchDocument(const std::string& address, bool (*isCancelled)());

// Returns the attributes of the elements at the path (which ends in "/") that have the same name as
// the first element there. Empty when there is none.
std::vector<win::XmlAttributes> ReadElements(const win::XmlDocument& document,
                                             const std::string& path);

}  // namespace search
