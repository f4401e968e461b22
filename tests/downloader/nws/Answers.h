#pragma once
#include <cstdint>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "downloader/feed/IsoTime.h"

// Answers of the Weather Service for tests: recorded ones, and ones built from a few properties.
namespace nws {

inline std::string Recorded(const std::string& name) {
    std::ifstream file(RECORDED_DIR "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline std::int64_t Time(const char* text) {
    return feed::ParseTime(text).value_or(-1);
}

// Properties by name. A value is JSON if it is null, a string, a list or an object, otherwise text.
using Properties = std::map<std::string, std::string>;

inline std::string Feature(Properties properties, const std::string& geometry = "null") {
    properties.insert({{"id", "urn:oid:1"},
                       {"status", "Actual"},
                       {"messageType", "Alert"},
                       {"event", "Flood Watch"},
                       {"sent", "2026-07-15T12:00:00-05:00"},
                       {"expires", "2026-07-15T20:00:00-05:00"},
                       {"ends", "null"}});
    std::string json;
    for (const auto& [name, value] : properties) {
        const bool isJson = value == "null" || value.find_first_of("\"[{") == 0;
        json += (json.empty() ? "\"" : ",\"") + name + "\":";
        json += isJson ? value : "\"" + value + "\"";
    }
    return R"({"type":"Feature","geometry":)" + geometry + R"(,"properties":{)" + json + "}}";
}

inline std::string Answer(const std::vector<std::string>& features) {
    std::string json;
    for (const std::string& feature : features) json += (json.empty() ? "" : ",") + feature;
    return R"({"type":"FeatureCollection","features":[)" + json + "]}";
}

// Returns the texts of all elements of a name, in order.
inline std::vector<std::string> Elements(const std::string& xml, const std::string& name) {
    std::vector<std::string> texts;
    const std::string open = "<aws:" + name + ">";
    for (std::size_t at = xml.find(open); at != std::string::npos; at = xml.find(open, at)) {
        at += open.size();
        texts.push_back(xml.substr(at, xml.find("</aws:" + name + ">", at) - at));
    }
    return texts;
}

}  // namespace nws
