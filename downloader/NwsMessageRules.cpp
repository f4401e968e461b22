#include "downloader/NwsMessageRules.h"

#include <algorithm>

#include "downloader/HashRules.h"
#include "downloader/NwsJsonRules.h"
#include "downloader/NwsTimeRules.h"
#include "downloader/NwsVtecRules.h"

namespace downloader {
namespace {

using Kind = JsonItem::Kind;

constexpr std::string_view kFeature = "features[]";
constexpr std::string_view kProperties = "features[]/properties";
constexpr std::string_view kProperty = "features[]/properties/";
constexpr std::string_view kReference = "references[]";

struct Field {
    std::string_view name;
    std::string Message::*text;
};
constexpr Field kFields[] = {
    {"id", &Message::identifier},           {"status", &Message::status},
    {"messageType", &Message::type},        {"event", &Message::event},
    {"headline", &Message::headline},       {"areaDesc", &Message::area},
    {"description", &Message::description}, {"instruction", &Message::instruction},
    {"severity", &Message::severity},       {"urgency", &Message::urgency},
    {"response", &Message::response},       {"sent", &Message::sent},
    {"expires", &Message::expires},         {"ends", &Message::ends},
};

bool IsEarlier(const std::string& left, const std::string& right) {
    const auto moment = ParseMoment(left);
    return moment && moment < ParseMoment(right).value_or(INT64_MAX);
}

// Collects the messages item by item.
struct Collector {
    std::vector<Message> messages;
    std::string reference;  // the present reference: its identifier and when it was sent
    std::string referenceSent;
    bool isCollection = false;
    bool hasList = false;
    bool isSound = true;

    // A feature of another kind than alerts has neither.
    bool IsAlert() const {
        const Message& message = messages.back();
        return message.hasProperties && !(message.identifier.empty() && message.event.empty());
    }

    void TakeReference(Message& message) {
        if (reference.empty()) return;
        if (message.firstReplaced.empty() || IsEarlier(referenceSent, message.firstSent)) {
            message.firstReplaced = reference;
            message.firstSent = referenceSent;
        }
        message.replaced.push_back(std::move(reference));
        reference.clear();
        referenceSent.clear();
    }

    void TakeProperty(Message& message, std::string_view name, const JsonItem& item) {
        if (item.kind == Kind::endObject && name == kReference) return TakeReference(message);
        if (item.kind != Kind::text) return;
        if (name == "references[]/identifier") reference = item.text;
        if (name == "references[]/sent") referenceSent = item.text;
        if (name == "parameters/VTEC[]") message.vtec.emplace_back(item.text);
        for (const Field& field : kFields)
            if (name == field.name) message.*field.text = item.text;
    }

    void Take(const JsonItem& item) {
        if (!item.path.starts_with(kFeature)) {
            if (item.path == "type") isCollection = item.text == "FeatureCollection";
            if (item.path == "features") hasList = item.kind == Kind::beginArray;
        } else if (item.path == kFeature) {
            if (item.kind == Kind::beginObject) {
                messages.emplace_back();
            } else if (item.kind != Kind::endObject || !IsAlert()) {
                isSound = false;
            }
        } else if (messages.empty()) {
            isSound = false;
        } else if (item.path == kProperties) {
            messages.back().hasProperties |= item.kind == Kind::beginObject;
        } else if (item.path.starts_with(kProperty)) {
            TakeProperty(messages.back(), item.path.substr(kProperty.size()), item);
        }
    }
};

// The first code that still runs, or the first at all.
std::optional<Vtec> FindVtec(const Message& message) {
    std::optional<Vtec> found;
    for (const std::string& text : message.vtec) {
        const auto vtec = ParseVtec(text);
        if (vtec && (!found || (EndsEvent(*found) && !EndsEvent(*vtec)))) found = vtec;
    }
    return found;
}

// The place of `word` in the list, counted from its end: the first is the highest, none is 0.
template <std::size_t size>
int Rank(const std::string_view (&words)[size], std::string_view word) {
    return static_cast<int>(std::end(words) - std::find(words, std::end(words), word));
}

}  // namespace

std::optional<std::vector<Message>> ReadMessages(std::string_view json) {
    Collector collector;
    const bool isWhole = ReadJson(json, [&](const JsonItem& item) { collector.Take(item); });
    if (!isWhole || !collector.isCollection || !collector.hasList || !collector.isSound)
        return std::nullopt;
    return std::move(collector.messages);
}

bool IsActual(const Message& message) {
    const auto vtec = FindVtec(message);
    return (message.status == "Actual" || message.status.empty()) &&
           !(vtec && vtec->product == 'T');
}

bool IsInForce(const Message& message, std::int64_t now) {
    const auto vtec = FindVtec(message);
    if (message.type == "Cancel" || (vtec && EndsEvent(*vtec)) ||
        (message.response == "AllClear" && message.urgency == "Past"))
        return false;
    const auto end = ParseMoment(message.ends.empty() ? message.expires : message.ends);
    return !end || *end > now;
}

std::string EventId(const Message& message) {
    const auto vtec = FindVtec(message);
    if (!vtec) {
        std::string first =
            message.firstReplaced.empty() ? message.identifier : message.firstReplaced;
        if (first.empty()) first = message.event + message.sent + message.area;
        return HashText(first).substr(4);
    }
    const std::string& sent =
        IsEarlier(message.firstSent, message.sent) ? message.firstSent : message.sent;
    const auto moment = ParseMoment(sent);
    return EventId(*vtec, moment ? YearOf(*moment) : 0);
}

int Gravity(const Message& message) {
    constexpr std::string_view kSeverities[] = {"Extreme", "Severe", "Moderate", "Minor"};
    constexpr std::string_view kUrgencies[] = {"Immediate", "Expected", "Future", "Unknown",
                                               "Past"};
    return Rank(kSeverities, message.severity) * 10 + Rank(kUrgencies, message.urgency);
}

}  // namespace downloader
