#pragma once
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "alerts/PlaceAnswers.h"

namespace alerts {

// Returns the value of "key" + n in the section; empty if there is none.
std::string StoredValue(const std::map<std::string, std::string>& section, const char* key, int n);

// Returns the alerts with a body that the Alerts section of the settings holds for a place, the
// newest first. Of several with one identifier only the newest is returned. `section` has
// lower-case keys.
std::vector<Alert> StoredAlerts(const std::map<std::string, std::string>& section,
                                std::string_view code);

}  // namespace alerts
