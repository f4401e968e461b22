#include "alerts/AlertReader.h"

#include <windows.h>

#include <utility>

#include "alerts/SeenAlerts.h"
#include "settings/IniOpenSave.h"
#include "win/CodePage.h"
#include "win/Text.h"

namespace alerts {
namespace {

// Short enough to keep the user interface responsive.
constexpr ULONGLONG kStepMilliseconds = 15;

// The elements to skip. The list in use is the empty one; the others are kept for reference.
constexpr std::string_view kSkipList = "||";
[[maybe_unused]] constexpr std::string_view kUnusedSkipLists[] = {"|year|second|",
                                                                  "|offset|text|hour-24|"};

WordFilter ReadFilter() {
    using namespace settings;
    return {win::Split(win::ToLower(ReadSetting(kAlertFilters)), kFilterSeparator),
            ReadFlag(kShowFilteredWords)};
}

// Replaces each run of spaces by one space and removes those at both ends.
std::string CollapseSpaces(std::string_view body) {
    std::string collapsed;
    collapsed.reserve(body.size());
    for (const char c : win::Trim(body))
        if (c != ' ' || collapsed.back() != ' ') collapsed += c;
    return collapsed;
}

}  // namespace

AlertReader::AlertReader(const std::string& dataFile, const std::string& stationCode)
    : stationCode_(stationCode),
      filter_(ReadFilter()),
      document_(win::StartLoadingXml(dataFile)),
      number_(win::LeadingInt16(settings::ReadSetting(settings::kAlertCount))) {}

bool AlertReader::ReadSome() {
    const win::XmlState state = win::StateOf(document_);
    if (state != win::XmlState::Loaded) return state == win::XmlState::Failed;
    if (!nodes_) {
        hasList_ = win::NextNode(win::SelectNodes(document_, "aws:weather/aws:alerts")) != nullptr;
        nodes_ = win::SelectNodes(document_, "aws:weather/aws:alerts/aws:alert/*");
    }
    const ULONGLONG end = GetTickCount64() + kStepMilliseconds;
    while (nodes_) {
        const win::XmlNode node = win::NextNode(nodes_);
        if (!node) break;
        Take(node);
        if (GetTickCount64() < end) continue;
        settings::HoldAlertSettings(std::exchange(values_, {}));
        return false;
    }
    values_.emplace_back(settings::kAlertCount.key, win::Decimal(number_));
    settings::HoldAlertSettings(values_);
    return true;
}

PlaceAnswer AlertReader::Answer() const {
    PlaceAnswer answer;
    answer.alerts = alerts_;
    answer.isFiltered = !filter_.lowerWords.empty();
    answer.isKnown = hasList_ && nodes_;
    answer.lastFailed = hasUnread_ || isOpen_;
    return answer;
}

void AlertReader::Take(const win::XmlNode& node) {
    const std::string name = win::BaseName(node);
    if (kSkipList.find("|" + name + "|") != std::string_view::npos) return;
    const bool isBody = name == "html-msg-body";
    if (!isBody && name != "id" && name != "title") return;
    const std::string text = win::NodeText(node);
    if (name == "id") {
        number_ = win::AddInt16(number_, 1);
        identifier_ = text;
        hasUnread_ |= isOpen_;
        isOpen_ = true;
    }
    if (name == "title") title_ = text;
    if (!isBody || text.empty()) return;
    isOpen_ = false;
    const std::string body = CollapseSpaces(text);
    if (filter_.lowerWords.empty() || filter_.Keeps(win::ToLower(body))) return Hold(body);
    number_ = win::AddInt16(number_, -1);
    // Without it, the answer would mean that there are no alerts.
    if (IsExemptFromFilter(title_)) alerts_.push_back({OneLine(identifier_), title_, body});
}

void AlertReader::Hold(const std::string& body) {
    const std::string n = win::Decimal(number_);
    values_.emplace_back(settings::kAlertBody + n, body);
    values_.emplace_back(settings::kAlertTitle + n, title_);
    values_.emplace_back(settings::kAlertZipCode + n, stationCode_);
    values_.emplace_back(settings::kAlertId + n, identifier_);
    identifiers_.push_back(OneLine(identifier_));
    alerts_.push_back({identifiers_.back(), title_, body});
}

}  // namespace alerts
