#include "alerts/AlertFeed.h"

#include "alerts/AlertFeedRules.h"
#include "alerts/modDownloader.h"
#include "settings/Hosts.h"
#include "settings/IniOpenSave.h"
#include "settings/ProgramState.h"
#include "win/Messages.h"
#include "win/Text.h"
#include "win/TextRules.h"
#include "win/XmlDocument.h"

namespace alerts {
namespace {

// No element is passed over: the list in force is the empty one. The others name elements that
// could be and are kept beside it, out of use.
constexpr std::string_view kSkipList = "||";
[[maybe_unused]] constexpr std::string_view kUnusedSkipLists[] = {"|year|second|",
                                                                  "|offset|text|hour-24|"};

struct AlertFilter {
    std::vector<std::string> lowerWords;
    bool showOnly = false;

    bool Keeps(const std::string& body) const {
        return lowerWords.empty() || KeepsAlert(win::ToLower(body), lowerWords, showOnly);
    }
};

AlertFilter ReadFilter() {
    using namespace settings;
    return {win::Split(win::ToLower(ReadSetting(kAlertFilters)), kFilterSeparator),
            IsTrue(ReadSetting(kShowFilteredWords))};
}

// The alerts of one document on their way into the Alerts section.
struct AlertStore {
    std::int16_t number;
    std::string stationCode;
    settings::KeyValues values;
    std::vector<std::string> identifiers;

    void Store(const std::string& body, const std::string& title, const std::string& identifier) {
        const std::string n = win::Decimal(number);
        values.emplace_back(settings::kAlertBody + n, body);
        values.emplace_back(settings::kAlertTitle + n, title);
        values.emplace_back(settings::kAlertZipCode + n, stationCode);
        values.emplace_back(settings::kAlertId + n, identifier);
        identifiers.push_back(identifier);
    }
};

// Walks the children of every alert.
void StoreAlerts(const win::XmlNodeList& nodes, AlertStore& store) {
    const AlertFilter filter = ReadFilter();
    std::string identifier;
    std::string title;  // carries over to an alert without a title of its own
    while (const win::XmlNode node = win::NextNode(nodes)) {
        const std::string name = win::BaseName(node);
        if (kSkipList.find("|" + name + "|") != std::string_view::npos) continue;
        const bool isBody = name == "html-msg-body";
        if (!isBody && name != "id" && name != "title") continue;
        const std::string text = win::NodeText(node);
        if (name == "id") {
            store.number = win::AddInt16(store.number, 1);
            identifier = text;
        }
        if (name == "title") title = text;
        if (!isBody || text.empty()) continue;
        const std::string body = TidyBody(text);
        if (!filter.Keeps(body)) {
            store.number = win::AddInt16(store.number, -1);
            continue;
        }
        store.Store(body, title, identifier);
        win::PumpNowAndThen();
    }
}

}  // namespace

std::int16_t FetchStationAlerts(const std::string& stationCode) {
    const Download download(
        settings::FeedHost() + settings::kFeedRequest + "&requesttype=6&ZipCode=" + stationCode,
        "SVL");
    return download.Succeeded() ? ParseAlerts(download.DataFile(), stationCode) : kDownloadFailed;
}

std::int16_t ParseAlerts(const std::string& dataFile, const std::string& stationCode) {
    AlertStore store{
        win::LeadingInt16(settings::ReadSetting(settings::kAlertCount)), stationCode, {}, {}};
    const win::XmlDocument document = win::LoadXmlFile(dataFile);
    if (!document) return 0;
    if (const auto nodes = win::SelectNodes(document, "aws:weather/aws:alerts/aws:alert/*"))
        StoreAlerts(nodes, store);
    store.values.emplace_back(settings::kAlertCount.key, win::Decimal(store.number));
    settings::HoldSettings(settings::kAlerts, store.values);
    return AddUnseen(settings::State().oldAlerts, store.identifiers, win::BrokenBar());
}

}  // namespace alerts
