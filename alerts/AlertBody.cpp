#include "alerts/AlertBody.h"

#include <algorithm>

#include "win/Text.h"

namespace alerts {
namespace {

constexpr std::string_view kSeverities[] = {"Unknown", "Minor", "Moderate", "Severe", "Extreme"};

// Removes a label and the word after it, up to a full stop, from the front of the text and returns
// the word; nullopt if the text begins differently.
std::optional<std::string_view> TakeFact(std::string_view& text, std::string_view label) {
    if (!text.starts_with(label)) return std::nullopt;
    const std::size_t end = text.find('.', label.size());
    if (end == std::string_view::npos) return std::nullopt;
    const std::string_view word = text.substr(label.size(), end - label.size());
    text.remove_prefix(std::min(text.size(), text.find_first_not_of(' ', end + 1)));
    return word;
}

std::string_view TrimLine(std::string_view line) {
    return win::Trim(line, " \t\r");
}

// Closes and opens the elements around the lines of a body.
class BodyWriter {
  public:
    explicit BodyWriter(std::string& html) : html_(html) {}

    void AddLine(std::string_view line) {
        if (line.empty()) {
            if (state_ == State::Paragraph) Close();  // a list ends only with the next text
            return;
        }
        const bool isItem = line.starts_with("* ") || line.starts_with("- ");
        if (isItem) {
            if (state_ != State::List) Open(State::List, "<ul>\n");
            html_ += "<li>";
            AppendText(html_, TrimLine(line.substr(2)));
            html_ += "</li>\n";
            return;
        }
        if (state_ == State::Paragraph)
            html_ += "<br>\n";
        else
            Open(State::Paragraph, "<p>");
        AppendText(html_, line);
    }

    void Close() {
        if (state_ == State::List) html_ += "</ul>\n";
        if (state_ == State::Paragraph) html_ += "</p>\n";
        state_ = State::Closed;
    }

  private:
    enum class State { Closed, Paragraph, List };

    void Open(State state, std::string_view tag) {
        Close();
        html_ += tag;
        state_ = state;
    }

    std::string& html_;
    State state_ = State::Closed;
};

}  // namespace

AlertFacts TakeFacts(std::string_view& body) {
    const std::size_t start = body.rfind("Severity: ");
    if (start == std::string_view::npos) return {};
    std::string_view text = body.substr(start);
    const auto severity = TakeFact(text, "Severity: ");
    const auto urgency = TakeFact(text, "Urgency: ");
    const auto certainty = TakeFact(text, "Certainty: ");
    if (!severity || !urgency || !certainty || !TrimLine(text).empty()) return {};
    body = body.substr(0, start);
    const auto* const found = std::ranges::find(kSeverities, *severity);
    const auto rank = found == std::end(kSeverities) ? 0 : found - std::begin(kSeverities);
    return {static_cast<Severity>(rank), *urgency, *certainty};
}

std::string_view SeverityWord(Severity severity) {
    return kSeverities[static_cast<std::size_t>(severity)];
}

void AppendText(std::string& html, std::string_view text) {
    for (const char c : text) {
        switch (c) {
            case '&':
                html += "&amp;";
                break;
            case '<':
                html += "&lt;";
                break;
            case '>':
                html += "&gt;";
                break;
            case '"':
                html += "&quot;";
                break;
            case '\'':
                html += "&#39;";
                break;
            default:
                html += static_cast<unsigned char>(c) < ' ' || c == '\x7F' ? ' ' : c;
        }
    }
}

void AppendBody(std::string& html, std::string_view body) {
    BodyWriter writer(html);
    while (!body.empty()) writer.AddLine(TrimLine(win::TakeLine(body)));
    writer.Close();
}

}  // namespace alerts
