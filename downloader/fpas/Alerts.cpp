#include "downloader/fpas/Alerts.h"

#include <algorithm>
#include <iterator>

#include "downloader/feed/AlertList.h"
#include "downloader/feed/FeedXml.h"
#include "downloader/feed/IsoTime.h"
#include "downloader/feed/Paragraphs.h"
#include "downloader/feed/Severity.h"
#include "downloader/fpas/AreaShape.h"
#include "downloader/fpas/Events.h"
#include "downloader/fpas/InForce.h"
#include "downloader/fpas/Language.h"
#include "settings/FeedContract.h"
#include "win/Text.h"

namespace fpas {
namespace {

using Blocks = std::vector<const Info*>;

// The blocks of one event in an alert. They may differ in area, time or severity.
struct Entry {
    const Alert* alert = nullptr;
    Blocks blocks;
    const Info* worst = nullptr;  // of the blocks
};

int SeverityRank(const Info* info) {
    return feed::SeverityRank(info->severity, info->urgency);
}

// The distance from the place to the block: 0 if it has an area without a readable shape.
double DistanceTo(const Info& info, const feed::Position& place) {
    if (info.areas.empty()) return 0;
    double nearest = DistanceTo(info.areas.front(), place).value_or(0);
    for (const Area& area : info.areas)
        nearest = std::min(nearest, DistanceTo(area, place).value_or(0));
    return nearest;
}

// Returns the blocks that concern the place, of all in one language: those that hold it or have no
// shapes, as blocks for one area. If none does, it is those that the server has found near the
// place, within a box of about 1 km to each side.
Blocks ChooseByPlace(const Blocks& blocks, const feed::Position& place) {
    constexpr double kToCorner = 1.6;  // kilometres
    Blocks holding;
    Blocks near;
    for (const Info* const block : blocks) {
        const double distance = DistanceTo(*block, place);
        if (distance == 0) holding.push_back(block);
        if (distance <= kToCorner) near.push_back(block);
    }
    return holding.empty() ? near : holding;
}

// Returns the blocks that are shown. If no block of the best language is in force at the place,
// blocks of others may be: an alert in a foreign language is better than none.
Choice ChooseBlocks(const Alert& alert, const feed::Position& place, std::string_view language,
                    std::int64_t now) {
    const auto isSameLanguage = [](const Info& left, const Info& right) {
        return win::EqualIgnoringCase(left.language, right.language);
    };
    Choice choice;
    for (choice.languageRank = kBestLanguage; choice.languageRank >= 0; --choice.languageRank) {
        for (auto first = alert.infos.begin(); first != alert.infos.end(); ++first) {
            const auto isAlso = [&](const Info& info) { return isSameLanguage(info, *first); };
            if (LanguageRank(first->language, language) != choice.languageRank ||
                std::any_of(alert.infos.begin(), first, isAlso))
                continue;
            Blocks all;
            for (auto info = first; info != alert.infos.end(); ++info)
                if (isAlso(*info)) all.push_back(&*info);
            choice.blocks = ChooseByPlace(all, place);
            std::erase_if(choice.blocks,
                          [&](const Info* info) { return !IsInForce(*info, alert, now); });
            if (!choice.blocks.empty()) return choice;
        }
    }
    return choice;
}

// Returns the different descriptions of the blocks' areas.
std::string DescribeAreas(const Blocks& blocks) {
    std::vector<std::string> descriptions;
    for (const Info* const block : blocks)
        for (const Area& area : block->areas)
            if (!area.description.empty() &&
                std::ranges::find(descriptions, area.description) == descriptions.end())
                descriptions.push_back(area.description);
    return win::Join(descriptions, "; ");
}

// Whether two blocks differ in nothing but their areas, times or severity.
bool SaySame(const Info& left, const Info& right) {
    return left.headline == right.headline && left.description == right.description &&
           left.instruction == right.instruction && left.senderName == right.senderName;
}

// Returns the texts of the entry, paragraph by paragraph. Blocks that say the same are one.
std::string Body(const Entry& entry, std::string_view title) {
    std::string body;
    const Info& worst = *entry.worst;
    if (worst.event != title && worst.headline.find(worst.event) == std::string::npos &&
        worst.description.find(worst.event) == std::string::npos)
        body = worst.event;
    for (auto block = entry.blocks.begin(); block != entry.blocks.end(); ++block) {
        const auto isSame = [&](const Info* other) { return SaySame(*other, **block); };
        if (std::any_of(entry.blocks.begin(), block, isSame)) continue;
        Blocks same;
        std::ranges::copy_if(entry.blocks, std::back_inserter(same), isSame);
        const std::string areas = DescribeAreas(same);
        const Info& info = **block;
        for (const std::string_view part :
             {std::string_view(info.headline), std::string_view(areas),
              std::string_view(info.description), std::string_view(info.instruction),
              std::string_view(info.senderName.empty() ? entry.alert->sender : info.senderName)})
            feed::AppendParagraphs(body, part);
    }
    feed::AppendSeverity(body, worst.severity, worst.urgency, worst.certainty);
    return body;
}

std::string Title(const Info& info) {
    const std::string& text = info.event.empty() ? info.headline : info.event;
    return text.empty() ? "Weather alert" : feed::ShortTitle(win::ReplaceControls(text));
}

const std::string& FirstEvent(const Alert& alert, std::string_view language) {
    return std::find_if(
               alert.infos.begin(), alert.infos.end(),
               [&](const Info& info) { return win::EqualIgnoringCase(info.language, language); })
        ->event;
}

// Returns the entries of the choices, one for each event that an alert names. The first event of an
// alert has the identity of the alert, the others have their own.
std::vector<feed::RankedAlert> MakeEntries(const std::vector<const Alert*>& alerts,
                                           const std::vector<Choice>& choices,
                                           std::vector<Entry>& entries) {
    std::vector<feed::RankedAlert> ranked;
    for (const Choice& choice : choices) {
        const Alert* const alert = alerts[choice.alert];
        const std::size_t first = entries.size();
        for (const Info* const block : choice.blocks) {
            const auto same = std::find_if(
                entries.begin() + static_cast<std::ptrdiff_t>(first), entries.end(),
                [&](const Entry& entry) { return entry.worst->event == block->event; });
            Entry& entry = same == entries.end() ? entries.emplace_back() : *same;
            entry.alert = alert;
            entry.blocks.push_back(block);
            if (!entry.worst || SeverityRank(block) > SeverityRank(entry.worst))
                entry.worst = block;
        }
        for (std::size_t at = first; at < entries.size(); ++at) {
            const Info& worst = *entries[at].worst;
            std::string identity = choice.identity;
            if (worst.event != FirstEvent(*alert, worst.language))
                identity = feed::ShortIdentity(identity, worst.event);
            ranked.push_back({at, std::move(identity), Title(worst),
                              feed::ParseTime(alert->sent).value_or(INT64_MIN), true,
                              SeverityRank(&worst)});
        }
    }
    return ranked;
}

void AddUnreadable(feed::AlertDocument& xml, const Document& document) {
    std::string body = "An alert for this place cannot be read. It comes from ";
    body.append(document.alert && !document.alert->sender.empty() ? document.alert->sender
                                                                  : document.address);
    body.append(
        ".\n\nRead the news of your weather service, or look at the "
        "alert itself: ");
    xml.Add(feed::ShortIdentity("unreadable " + document.uuid), settings::kUnreadableTitle,
            body.append(document.address));
}

void AddMore(feed::AlertDocument& xml, std::string_view code) {
    xml.Add(feed::ShortIdentity("more alerts " + std::string(code)), settings::kMoreAlertsTitle,
            "There are more alerts for this place than the program reads. The "
            "newest " +
                win::Decimal(static_cast<long long>(kMostDocuments)) +
                " have been read. Read the news of your weather service too.");
}

// Whether the document is for the public but cannot be read.
bool IsUnreadable(const Document& document) {
    return !document.alert || (IsPublic(*document.alert) && !IsComplete(*document.alert));
}

}  // namespace

std::string BuildAlertDocument(const Answer& answer, const AlertPlace& place,
                               std::string_view language, feed::AlertMemory& memory,
                               std::int64_t now) {
    std::vector<const Alert*> alerts;
    for (const Document& document : answer.documents)
        alerts.push_back(IsUnreadable(document) || !IsPublic(*document.alert) ? nullptr
                                                                              : &*document.alert);
    const std::vector<bool> replaced = FindReplaced(alerts);
    std::vector<Choice> choices;
    for (std::size_t at = 0; at < alerts.size(); ++at) {
        if (!alerts[at] || replaced[at] || !IsAnnouncement(*alerts[at])) continue;
        Choice choice = ChooseBlocks(*alerts[at], place.centre, language, now);
        choice.alert = at;
        if (!choice.blocks.empty()) choices.push_back(std::move(choice));
    }
    IdentifyEvents(alerts, choices, memory, now);
    std::vector<Entry> entries;
    auto ranked = MakeEntries(alerts, choices, entries);
    feed::KeepOnePerEvent(ranked);
    feed::PutWorstFirst(ranked);
    feed::AlertDocument xml;
    for (const feed::RankedAlert& alert : ranked)
        xml.Add(alert.identity, alert.title, Body(entries[alert.message], alert.title));
    for (const Document& document : answer.documents)
        if (IsUnreadable(document)) AddUnreadable(xml, document);
    if (answer.hasMore) AddMore(xml, place.code);
    return xml.Finish();
}

}  // namespace fpas
