#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "downloader/feed/Gazetteer.h"

// The addresses of a public alert server, and its list of alerts.
namespace fpas {

// Returns the address of the list of alerts for a small box around the place.
std::string AreaAddress(const std::string& origin, const feed::Place& place);

// Returns the address of an alert's document.
std::string DocumentAddress(const std::string& origin, const std::string& identifier);

// Reads the list of alerts: their identifiers, each once, in the server's order. Returns nullopt
// when it is not a complete list of UUIDs.
std::optional<std::vector<std::string>> ReadIdentifiers(std::string json);

}  // namespace fpas
