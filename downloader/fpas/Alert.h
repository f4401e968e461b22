#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// What is read from a document of CAP (the Common Alerting Protocol, version 1.2), and kept in the
// cache. All texts are well-formed UTF-8 without white space at their ends; missing ones are empty.
namespace fpas {

// An area. Its shapes are only kept if blocks of one language have different areas, because only
// then do they decide anything. An area without a shape is known by its geocodes to the server.
struct Area {
    std::string description;
    std::vector<std::string> polygons;  // as written: "latitude,longitude latitude,longitude ..."
    std::vector<std::string> circles;   // as written: "latitude,longitude radius"
};

// One block of an alert: an event in one language.
struct Info {
    std::string language;    // "de-CH"; the protocol's default is "en-US"
    std::string categories;  // "Met" or several words, separated by spaces
    std::string event;
    std::string eventCodes;  // "NAME VALUE", separated by spaces
    std::string responses;   // words, separated by spaces
    std::string urgency;
    std::string severity;
    std::string certainty;
    std::string effective;
    std::string onset;
    std::string expires;
    std::string senderName;
    std::string headline;
    std::string description;
    std::string instruction;
    std::string awarenessLevel;  // of MeteoAlarm: "2; yellow; Moderate"
    std::string awarenessType;
    std::string areaKey;  // equal for equal areas, in whatever language they are described
    std::vector<Area> areas;
};

struct Alert {
    std::string identifier;
    std::string sender;
    std::string sent;
    std::string status;
    std::string type;
    std::string scope;
    std::string references;  // "sender,identifier,sent", separated by white space
    std::vector<Info> infos;
};

// Reads a document. Returns nullopt unless it is one well-formed alert in UTF-8, at most 4 MB and
// 1,000 blocks. Its elements may be missing.
std::optional<Alert> ReadAlert(std::string document);

}  // namespace fpas
