#include "downloader/feed/FeedXml.h"

namespace feed {
namespace {

// Returns what replaces a character that cannot be written as it is.
std::string_view Replacement(char c) {
    switch (c) {
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '&':
            return "&amp;";
        case '"':
            return "&quot;";
        default:
            return " ";
    }
}

bool IsPlain(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return (byte >= 0x20 && c != '<' && c != '>' && c != '&' && c != '"') || c == '\n' || c == '\t';
}

// Whether the text begins with U+FFFE or U+FFFF, which XML does not allow.
bool IsNoCharacter(std::string_view text) {
    return text.starts_with("\xEF\xBF\xBE") || text.starts_with("\xEF\xBF\xBF");
}

// Appends the text escaped for an element or a quoted attribute.
void AppendEscaped(std::string& xml, std::string_view text) {
    std::size_t done = 0;  // end of the text appended so far
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool isNone = text[at] == '\xEF' && IsNoCharacter(text.substr(at));
        if (IsPlain(text[at]) && !isNone) continue;
        xml.append(text.substr(done, at - done));
        xml.append(isNone ? " " : Replacement(text[at]));
        if (isNone) at += 2;
        done = at + 1;
    }
    xml.append(text.substr(done));
}

}  // namespace

void AppendXmlElement(std::string& xml, std::string_view name, std::string_view text) {
    xml.append("<aws:").append(name).append(">");
    AppendEscaped(xml, text);
    xml.append("</aws:").append(name).append(">");
}

void AppendXmlAttribute(std::string& xml, std::string_view name, std::string_view text) {
    xml.append(" ").append(name).append("=\"");
    AppendEscaped(xml, text);
    xml.append("\"");
}

std::string BuildLocationDocument(const std::vector<Place>& places) {
    std::string xml(kXmlHead);
    xml += "<aws:locations>\n";
    for (const Place& place : places) {
        xml += "<aws:location";
        AppendXmlAttribute(xml, "cityname", place.name);
        AppendXmlAttribute(xml, "countryname", "USA");
        AppendXmlAttribute(xml, "statename", place.state);
        AppendXmlAttribute(xml, "zipcode", place.zipCode);
        AppendXmlAttribute(xml, "citytype", "0");
        xml += "/>\n";
    }
    xml += "</aws:locations>";
    return xml.append(kXmlTail);
}

}  // namespace feed
