#include "alerts/AlertReader.h"

#include <windows.h>

#include <utility>

#include "alerts/AlertFeedRules.h"
#include "settings/IniOpenSave.h"
#include "win/CodePage.h"
#include "win/Text.h"

namespace alerts {
namespace {

// A step this short leaves the user interface responsive.
constexpr ULONGLONG kStepMilliseconds = 15;

// No element is passed over: the list in force is the empty one. The others name elements that
// could be and are kept beside it, out of use.
constexpr std::string_view kSkipList = "||";
[[maybe_unused]] constexpr std::string_view kUnusedSkipLists[] = {"|year|second|",
                                                                  "|offset|text|hour-24|"};

AlertFilter ReadFilter() {
    using namespace settings;
    return {win::Split(win::ToLower(ReadSetting(kAlertFilters)), kFilterSeparator),
            IsTrue(ReadSetting(kShowFilteredWords))};
}

}  // namespace

bool AlertFilter::Keeps(const std::string& body) const {
    return lowerWords.empty() || KeepsAlert(win::ToLower(body), lowerWords, showOnly);
}

AlertReader::AlertReader(const std::string& dataFile, const std::string& stationCode)
    : stationCode_(stationCode),
      filter_(ReadFilter()),
      document_(win::StartLoadingXml(dataFile)),
      number_(win::LeadingInt16(settings::ReadSetting(settings::kAlertCount))) {}

bool AlertReader::ReadSome() {
    const win::XmlState state = win::StateOf(document_);
    if (state != win::XmlState::Loaded) return state == win::XmlState::Failed;
    if (!nodes_) nodes_ = win::SelectNodes(document_, "aws:weather/aws:alerts/aws:alert/*");
    const ULONGLONG end = GetTickCount64() + kStepMilliseconds;
    while (nodes_) {
        const win::XmlNode node = win::NextNode(nodes_);
        if (!node) break;
        Take(node);
        if (GetTickCount64() < end) continue;
        settings::HoldSettings(settings::kAlerts, std::exchange(values_, {}));
        return false;
    }
    values_.emplace_back(settings::kAlertCount.key, win::Decimal(number_));
    settings::HoldSettings(settings::kAlerts, values_);
    return true;
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
    }
    if (name == "title") title_ = text;
    if (!isBody || text.empty()) return;
    const std::string body = TidyBody(text);
    if (filter_.Keeps(body))
        Store(body);
    else
        number_ = win::AddInt16(number_, -1);
}

void AlertReader::Store(const std::string& body) {
    const std::string n = win::Decimal(number_);
    values_.emplace_back(settings::kAlertBody + n, body);
    values_.emplace_back(settings::kAlertTitle + n, title_);
    values_.emplace_back(settings::kAlertZipCode + n, stationCode_);
    values_.emplace_back(settings::kAlertId + n, identifier_);
    identifiers_.push_back(OneLine(identifier_));
}

}  // namespace alerts
