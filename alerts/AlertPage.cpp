#include "alerts/AlertPage.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "alerts/AlertBody.h"
#include "alerts/PageStyle.h"
#include "win/Text.h"

namespace alerts {
namespace {

// One outline per severity, in a 16-unit square, so that severities differ in shape too.
constexpr std::string_view kShapes[] = {
    "M2 2h12v12H2z",                // a square
    "M8 1a7 7 0 1 0 .01 0z",        // a disc
    "M8 0l8 8-8 8-8-8z",            // a diamond
    "M8 1l8 14H0z",                 // a triangle
    "M5 0h6l5 5v6l-5 5H5l-5-5V5z",  // an octagon
};

// An alert with its facts apart from its text.
struct Entry {
    const Alert* alert;
    std::string_view text;
    AlertFacts facts;
};

// Returns the alerts, the worst first.
std::vector<Entry> SortByWorst(const std::vector<Alert>& alerts) {
    std::vector<Entry> entries;
    for (const Alert& alert : alerts) {
        if (IsNotice(alert.title)) continue;
        std::string_view text = alert.body;
        const AlertFacts facts = TakeFacts(text);
        entries.push_back({&alert, text, facts});
    }
    std::ranges::stable_sort(entries, std::greater(),
                             [](const Entry& entry) { return entry.facts.severity; });
    return entries;
}

std::string Count(std::size_t number, std::string_view what) {
    return win::Decimal(static_cast<long long>(number))
        .append(" ")
        .append(what)
        .append(number == 1 ? "" : "s");
}

// Returns one line about the place's alerts, in HTML.
std::string Status(const PagePlace& place, const std::vector<Entry>& entries) {
    if (!entries.empty()) {
        std::string count = Count(entries.size(), "alert");
        const Severity worst = entries.front().facts.severity;
        if (worst == Severity::Unknown) return count;
        return (count + ", the worst: ").append(SeverityWord(worst));
    }
    if (HasCertainlyNoAlerts(place))
        return place.answer.isFiltered ? "No alerts that pass your filter" : "No alerts";
    return "Not known whether there are alerts";
}

void AppendElement(std::string& html, std::string_view tag, std::string_view text) {
    html.append("<").append(tag).append(">");
    AppendText(html, text);
    html.append("</").append(tag.substr(0, tag.find(' '))).append(">\n");
}

void AppendNotice(std::string& html, std::string_view text) {
    html += "<div class=\"notice\">";
    AppendElement(html, "p", text);
    html += "</div>\n";
}

void AppendFacts(std::string& html, const AlertFacts& facts) {
    const std::string_view word = SeverityWord(facts.severity);
    html.append(
            "<p class=\"facts\"><span class=\"badge\"><svg viewBox=\"0 0 16 16\" "
            "aria-hidden=\"true\"><path d=\"")
        .append(kShapes[static_cast<std::size_t>(facts.severity)])
        .append("\"/></svg>");
    html.append(facts.severity == Severity::Unknown ? "Severity not known" : word)
        .append("</span> ");
    if (!facts.urgency.empty()) {
        html += "Urgency: ";
        AppendText(html, facts.urgency);
        html += ". Certainty: ";
        AppendText(html, facts.certainty);
        html += ".";
    }
    html += "</p>\n";
}

void AppendAlert(std::string& html, const Entry& entry, std::size_t cutLength) {
    html.append("<article class=\"")
        .append(win::AsciiLower(SeverityWord(entry.facts.severity)))
        .append("\">\n");
    AppendElement(html, "h3", entry.alert->title.empty() ? "Alert" : entry.alert->title);
    AppendFacts(html, entry.facts);
    AppendBody(html, entry.text);
    if (cutLength > 0 && win::CountChars(entry.alert->body) >= cutLength)
        AppendNotice(html, "Only the beginning of this text is known.");
    html += "</article>\n";
}

// Says how far the answer can be relied on.
void AppendAge(std::string& html, const PagePlace& place) {
    const PlaceAnswer& answer = place.answer;
    if (answer.lastFailed)
        AppendNotice(html, answer.isKnown
                               ? "The last retrieval failed. There may be newer alerts than these."
                               : "The last retrieval failed.");
    if (!answer.isKnown) {
        if (!answer.lastFailed) AppendNotice(html, "Nothing was retrieved yet in this session.");
        return;
    }
    if (place.isOld)
        AppendNotice(html,
                     "The last successful retrieval was long ago. There may be newer alerts.");
    const std::string when = "Last retrieved: " + answer.retrieved + ".";
    html += "<p class=\"when\">";
    AppendText(html, when);
    if (answer.alerts.empty() && !HasCertainlyNoAlerts(place))
        html += answer.isFiltered ? " No alerts passed your filter then."
                                  : " There were no alerts then.";
    else if (answer.isFiltered)
        html += " Alerts that your filter hides are not shown.";
    html += "</p>\n";
}

void AppendLink(std::string& html, std::string_view address, std::string_view text) {
    html += "<li><a rel=\"noreferrer\" href=\"";
    AppendText(html, address);
    html += "\">";
    AppendText(html, text);
    html += "</a></li>\n";
}

void AppendLinks(std::string& html, const PagePlace& place) {
    if (place.forecast.empty() && place.source.empty()) return;
    html += "<ul class=\"links\">\n";
    if (!place.forecast.empty()) AppendLink(html, place.forecast, "Forecast for " + place.name);
    if (!place.source.empty()) AppendLink(html, place.source, place.sourceTitle);
    html += "</ul>\n";
}

void AppendPlace(std::string& html, const PagePlace& place, const PageData& data, bool isOpen) {
    const std::vector<Entry> entries = SortByWorst(place.answer.alerts);
    html.append(isOpen ? "<details open>\n" : "<details>\n").append("<summary>");
    AppendElement(html, "h2", place.name);
    html += "<span class=\"status\">";
    html.append(Status(place, entries)).append("</span></summary>\n");
    AppendAge(html, place);
    for (const Alert& alert : place.answer.alerts)
        if (IsNotice(alert.title)) AppendNotice(html, alert.title + ". " + alert.body);
    for (const Entry& entry : entries) AppendAlert(html, entry, 0);
    const std::vector<Entry> stored = SortByWorst(place.stored);
    if (!place.answer.isKnown && !stored.empty()) {
        html += "<section>\n";
        AppendNotice(html, "Stored earlier, may have ended");
        for (const Entry& entry : stored) AppendAlert(html, entry, data.longestStored);
        html += "</section>\n";
    }
    AppendLinks(html, place);
    html += "</details>\n";
}

}  // namespace

bool HasCertainlyNoAlerts(const PagePlace& place) {
    const PlaceAnswer& answer = place.answer;
    return answer.isKnown && !answer.lastFailed && !place.isOld && answer.alerts.empty();
}

std::string BuildAlertPage(const PageData& data) {
    std::string html =
        "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
        "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
        "style-src 'sha256-";
    html.append(kPageStyleHash);
    html +=
        "'; base-uri 'none'; form-action 'none'\">\n"
        "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
        "<meta name=\"referrer\" content=\"no-referrer\">\n"
        "<title>Weather alerts - Skyvane Alerts</title>\n<style>";
    html.append(kPageStyle)
        .append("</style>\n</head>\n<body>\n<header>\n<h1>Weather alerts</h1>\n");
    AppendElement(html, "p",
                  "What Skyvane Alerts knew at " + data.written +
                      ". This page does not update: choose an alert or a station again to see "
                      "what is new.");
    html += "</header>\n<main>\n";
    for (std::size_t i = 0; i < data.places.size(); ++i)
        AppendPlace(html, data.places[i], data, i == 0);
    html += "</main>\n<footer>\n";
    AppendElement(html, "p",
                  "Source of the alerts: " + data.source +
                      ". They may be late, incomplete or missing. Official warnings and the "
                      "instructions of local authorities come first.");
    return html.append("</footer>\n</body>\n</html>\n");
}

}  // namespace alerts
