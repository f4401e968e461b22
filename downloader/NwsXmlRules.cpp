#include "downloader/NwsXmlRules.h"

namespace downloader {
namespace {

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

// Whether the text begins with U+FFFE or U+FFFF, which no document may hold.
bool IsNoCharacter(std::string_view text) {
    return text.starts_with("\xEF\xBF\xBE") || text.starts_with("\xEF\xBF\xBF");
}

}  // namespace

void AppendXmlText(std::string& xml, std::string_view text) {
    std::size_t done = 0;  // all before it is appended
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

void AppendXmlElement(std::string& xml, std::string_view name, std::string_view text) {
    xml.append("<aws:").append(name).append(">");
    AppendXmlText(xml, text);
    xml.append("</aws:").append(name).append(">");
}

void AppendXmlAttribute(std::string& xml, std::string_view name, std::string_view text) {
    xml.append(" ").append(name).append("=\"");
    AppendXmlText(xml, text);
    xml.append("\"");
}

}  // namespace downloader
