#include "alerts/StoredAlerts.h"

#include <algorithm>
#include <functional>
#include <set>

#include "settings/SettingKeys.h"
#include "win/Text.h"

namespace alerts {

std::string StoredValue(const std::map<std::string, std::string>& section, const char* key, int n) {
    const auto found = section.find(key + win::Decimal(n));
    return found == section.end() ? std::string() : found->second;
}

std::vector<Alert> StoredAlerts(const std::map<std::string, std::string>& section,
                                std::string_view code) {
    std::vector<int> numbers;
    for (const auto& [key, value] : section)
        if (key.starts_with(settings::kAlertZipCode) && value == code)
            numbers.push_back(
                win::LeadingInt16(key.substr(std::string_view(settings::kAlertZipCode).size())));
    std::ranges::sort(numbers, std::greater());
    std::vector<Alert> alerts;
    std::set<std::string> identifiers;
    for (const int n : numbers) {
        Alert alert{StoredValue(section, settings::kAlertId, n),
                    StoredValue(section, settings::kAlertTitle, n),
                    StoredValue(section, settings::kAlertBody, n)};
        if (!alert.body.empty() && identifiers.insert(alert.identifier).second)
            alerts.push_back(std::move(alert));
    }
    return alerts;
}

}  // namespace alerts
