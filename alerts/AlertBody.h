#pragma once
#include <optional>
#include <string>
#include <string_view>

// The text of an alert as HTML. Nothing in it can become markup.
namespace alerts {

enum class Severity { Unknown, Minor, Moderate, Severe, Extreme };

// The last paragraph of a body: "Severity: X. Urgency: Y. Certainty: Z.".
struct AlertFacts {
    Severity severity = Severity::Unknown;
    std::string_view urgency;  // empty if the body has no such paragraph
    std::string_view certainty;
};

// Removes the facts from the end of the body and returns them.
AlertFacts TakeFacts(std::string_view& body);

// Returns the word for a severity, which is also its class in the page.
std::string_view SeverityWord(Severity severity);

// Appends the text with the characters that HTML reserves escaped and control characters as spaces.
void AppendText(std::string& html, std::string_view text);

// Appends a body as paragraphs, which an empty line separates, and lists, whose items have lines of
// their own, begin with "* " or "- ", and may have empty lines between them.
void AppendBody(std::string& html, std::string_view body);

}  // namespace alerts
