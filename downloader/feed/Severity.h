#pragma once
#include <string>
#include <string_view>

// How severe an alert is, in the words of CAP (the Common Alerting Protocol).
namespace feed {

// Ranks an alert by severity, then urgency; higher is more severe. Unknown words rank lowest.
int SeverityRank(std::string_view severity, std::string_view urgency);

// Appends the paragraph that ends the body of every alert and lets the word filter find alerts by
// their severity. An empty word becomes "Unknown".
void AppendSeverity(std::string& body, std::string_view severity, std::string_view urgency,
                    std::string_view certainty);

}  // namespace feed
