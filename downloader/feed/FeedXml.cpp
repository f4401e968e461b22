#include "downloader/feed/FeedXml.h"

#include <array>
#include <utility>

#include "downloader/feed/AlertMemory.h"
#include "settings/FeedContract.h"

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

// For each byte, whether it is written as it is. 0xEF may begin U+FFFE or U+FFFF, which XML does
// not allow.
constexpr std::array<bool, 256> PlainBytes() {
    std::array<bool, 256> plain{};
    for (std::size_t byte = 0x20; byte < plain.size(); ++byte) plain[byte] = true;
    for (const unsigned char special : {'<', '>', '&', '"', '\xEF'}) plain[special] = false;
    for (const unsigned char space : {'\n', '\t'}) plain[space] = true;
    return plain;
}

bool IsNoCharacter(std::string_view text) {
    return text.starts_with("\xEF\xBF\xBE") || text.starts_with("\xEF\xBF\xBF");
}

// Appends the text escaped for an element or a quoted attribute.
void AppendEscaped(std::string& xml, std::string_view text) {
    static constexpr auto kPlain = PlainBytes();
    std::size_t done = 0;  // end of the text appended so far
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (kPlain[static_cast<unsigned char>(text[at])]) continue;
        const bool isNone = IsNoCharacter(text.substr(at));
        if (text[at] == '\xEF' && !isNone) continue;
        xml.append(text.substr(done, at - done));
        xml.append(isNone ? " " : Replacement(text[at]));
        if (isNone) at += 2;
        done = at + 1;
    }
    xml.append(text.substr(done));
}

// Replaces the brackets, bars and asterisks that the program uses as delimiters.
std::string ReplaceDelimiters(std::string_view text) {
    std::string replaced(text);
    for (char& c : replaced) {
        if (c == '(') c = '[';
        if (c == ')') c = ']';
        if (c == '|' || c == '*') c = ' ';
    }
    return replaced;
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

AlertDocument::AlertDocument(std::size_t size) {
    xml_.reserve(size);
    xml_.append(kXmlHead).append("<aws:alerts>\n");
}

void AlertDocument::Add(std::string_view identifier, std::string_view title,
                        std::string_view body) {
    xml_ += "<aws:alert>";
    AppendXmlElement(xml_, "id", identifier);
    AppendXmlElement(xml_, "title", title);
    AppendXmlElement(xml_, "html-msg-body", body);
    xml_ += "</aws:alert>\n";
}

std::string AlertDocument::Finish() {
    xml_.append("</aws:alerts>").append(kXmlTail);
    return std::move(xml_);
}

std::string BuildNotCoveredDocument(std::string_view code, std::string_view reason) {
    AlertDocument document;
    document.Add(ShortIdentity("not covered " + std::string(code)), settings::kNotCoveredTitle,
                 reason);
    return document.Finish();
}

void AppendStation(std::string& xml, const Station& station, const Place& place) {
    xml += "<aws:station";
    AppendXmlAttribute(xml, "id", ReplaceDelimiters(station.id));
    AppendXmlAttribute(xml, "name", ReplaceDelimiters(station.name));
    AppendXmlAttribute(xml, "city", ReplaceDelimiters(place.name));
    AppendXmlAttribute(xml, "state", ReplaceDelimiters(AreaOf(place)));
    AppendXmlAttribute(xml, "zipcode", place.code);
    AppendXmlAttribute(xml, "station-type", station.type);
    AppendXmlAttribute(xml, "latitude", FormatDegrees(station.latitude));
    AppendXmlAttribute(xml, "longitude", FormatDegrees(station.longitude));
    xml += "/>\n";
}

std::string BuildPlaceStationDocument(const Place& place) {
    std::string xml(kXmlHead);
    AppendStation(xml, {place.code, place.name, "Public alerts", place.latitude, place.longitude},
                  place);
    return xml.append(kXmlTail);
}

std::string BuildLocationDocument(const std::vector<Place>& places) {
    std::string xml(kXmlHead);
    xml += "<aws:locations>\n";
    for (const Place& place : places) {
        xml += "<aws:location";
        AppendXmlAttribute(xml, "cityname", ReplaceDelimiters(place.name));
        AppendXmlAttribute(xml, "countryname", ReplaceDelimiters(place.country));
        // The program shows the last one of both that is not empty.
        const std::string area = place.state.empty() ? "" : AreaOf(place);
        AppendXmlAttribute(xml, "statename", ReplaceDelimiters(area));
        AppendXmlAttribute(xml, "zipcode", place.code);
        AppendXmlAttribute(xml, "citytype", "0");
        xml += "/>\n";
    }
    xml += "</aws:locations>";
    return xml.append(kXmlTail);
}

}  // namespace feed
