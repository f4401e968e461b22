#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "downloader/feed/Gazetteer.h"

// The XML documents that answer a feed request.
namespace feed {

inline constexpr std::string_view kXmlHead =
    "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<aws:weather "
    "xmlns:aws=\"http://www.aws.com/aws\">";
inline constexpr std::string_view kXmlTail = "</aws:weather>\n";

// Appends <aws:name>text</aws:name>. The text is well-formed UTF-8 and is escaped; characters that
// XML does not allow become spaces. The same applies to AppendXmlAttribute.
void AppendXmlElement(std::string& xml, std::string_view name, std::string_view text);

// Appends a space and name="text".
void AppendXmlAttribute(std::string& xml, std::string_view name, std::string_view text);

// Returns the document that answers a search for locations.
std::string BuildLocationDocument(const std::vector<Place>& places);

}  // namespace feed
