#pragma once
#include <string>
#include <string_view>

// The documents that answer a feed request.
namespace downloader {

// Appends text as it can stand in an element or a quoted attribute: marked characters escaped,
// those that XML cannot hold as blanks. `text` is well-formed UTF-8.
void AppendXmlText(std::string& xml, std::string_view text);

// Appends <aws:name>text</aws:name>.
void AppendXmlElement(std::string& xml, std::string_view name, std::string_view text);

// Appends a blank and name="text".
void AppendXmlAttribute(std::string& xml, std::string_view name, std::string_view text);

inline constexpr std::string_view kXmlHead =
    "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<aws:weather "
    "xmlns:aws=\"http://www.aws.com/aws\">";
inline constexpr std::string_view kXmlTail = "</aws:weather>\n";

}  // namespace downloader
