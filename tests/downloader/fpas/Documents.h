#pragma once
#include <map>
#include <string>
#include <vector>

#include "downloader/fpas/Alerts.h"
#include "tests/downloader/nws/Answers.h"

// Documents for tests, built from a few elements.
namespace fpas {

// Elements by name. A value that begins with "<" is XML.
using Elements = std::map<std::string, std::string>;

inline std::string ToXml(const Elements& elements, const std::string& more = {}) {
    std::string xml;
    for (const auto& [name, value] : elements)
        xml += value.empty() ? "" : "<" + name + ">" + value + "</" + name + ">";
    return xml + more;
}

inline const std::string kGeocode =
    "<areaDesc>Coast</areaDesc><geocode><valueName>E</valueName><value>E1</value></geocode>";

// A block. An element whose value is empty is omitted.
inline std::string Block(Elements elements) {
    elements.insert({{"language", "en-GB"},
                     {"category", "Met"},
                     {"event", "Storm"},
                     {"urgency", "Expected"},
                     {"severity", "Severe"},
                     {"certainty", "Likely"},
                     {"onset", "2026-07-15T17:00:00Z"},
                     {"expires", "2026-07-15T20:00:00+01:00"},
                     {"area", kGeocode}});
    return "<info>" + ToXml(elements) + "</info>";
}

inline std::string Document(Elements elements, const std::string& blocks = Block({})) {
    elements.insert({{"identifier", "a"},
                     {"sender", "met@example.org"},
                     {"sent", "2026-07-15T16:00:00Z"},
                     {"status", "Actual"},
                     {"msgType", "Alert"},
                     {"scope", "Public"}});
    return R"(<?xml version="1.0" encoding="UTF-8"?><alert xmlns="urn:oasis:names:tc:emergency:cap:1.2">)" +
           ToXml(elements, blocks) + "</alert>";
}

}  // namespace fpas
