#include "downloader/nws/Messages.h"

#include <algorithm>

#include "downloader/feed/IsoTime.h"
#include "downloader/feed/Json.h"
#include "downloader/http/TextHash.h"
#include "downloader/nws/Vtec.h"

namespace nws {
namespace {

using feed::JsonItem;
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
    const auto time = feed::ParseTime(left);
    return time && time < feed::ParseTime(right).value_or(INT64_MAX);
}

// Collects the messages from the items of the document.
struct Collector {
    std::vector<Message> messages;
    std::string reference;  // the current reference: its identifier and when it was sent
    std::string referenceSent;
    bool isCollection = false;
    bool hasList = false;
    bool isValid = true;

    // Features other than alerts have neither.
    bool IsAlert() const {
        const Message& message = messages.back();
        return message.hasProperties && !(message.identifier.empty() && message.event.empty());
    }

    void AddReference(Message& message) {
        if (reference.empty()) return;
        if (message.firstReplaced.empty() || IsEarlier(referenceSent, message.firstSent)) {
            message.firstReplaced = reference;
            message.firstSent = referenceSent;
        }
        message.replaced.push_back(std::move(reference));
        reference.clear();
        referenceSent.clear();
    }

    void ReadProperty(Message& message, std::string_view name, const JsonItem& item) {
        if (item.kind == Kind::EndObject && name == kReference) return AddReference(message);
        if (item.kind != Kind::Text) return;
        if (name == "references[]/identifier") reference = item.text;
        if (name == "references[]/sent") referenceSent = item.text;
        if (name == "parameters/VTEC[]") message.vtec.emplace_back(item.text);
        for (const Field& field : kFields)
            if (name == field.name) message.*field.text = item.text;
    }

    void Read(const JsonItem& item) {
        if (!item.path.starts_with(kFeature)) {
            if (item.path == "type") isCollection = item.text == "FeatureCollection";
            if (item.path == "features") hasList = item.kind == Kind::BeginArray;
        } else if (item.path == kFeature) {
            if (item.kind == Kind::BeginObject) {
                messages.emplace_back();
            } else if (item.kind != Kind::EndObject || !IsAlert()) {
                isValid = false;
            }
        } else if (messages.empty()) {
            isValid = false;
        } else if (item.path == kProperties) {
            messages.back().hasProperties |= item.kind == Kind::BeginObject;
        } else if (item.path.starts_with(kProperty)) {
            ReadProperty(messages.back(), item.path.substr(kProperty.size()), item);
        }
    }
};

// Returns the first code whose event continues, or the first code when there is none.
std::optional<Vtec> FindVtec(const Message& message) {
    std::optional<Vtec> found;
    for (const std::string& text : message.vtec) {
        const auto vtec = ParseVtec(text);
        if (vtec && (!found || (EndsEvent(*found) && !EndsEvent(*vtec)))) found = vtec;
    }
    return found;
}

// Returns the rank of `word` in the list: the first word ranks highest, an unknown word is 0.
template <std::size_t size>
int Rank(const std::string_view (&words)[size], std::string_view word) {
    return static_cast<int>(std::end(words) - std::find(words, std::end(words), word));
}

}  // namespace

std::optional<std::vector<Message>> ReadMessages(std::string json) {
    Collector collector;
    const bool isWhole =
        feed::ReadJson(std::move(json), [&](const JsonItem& item) { collector.Read(item); });
    if (!isWhole || !collector.isCollection || !collector.hasList || !collector.isValid)
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
    const auto end = feed::ParseTime(message.ends.empty() ? message.expires : message.ends);
    return !end || *end > now;
}

std::string EventId(const Message& message) {
    const auto vtec = FindVtec(message);
    if (!vtec) {
        std::string first =
            message.firstReplaced.empty() ? message.identifier : message.firstReplaced;
        if (first.empty()) first = message.event + message.sent + message.area;
        return http::HashText(first).substr(4);
    }
    const std::string& sent =
        IsEarlier(message.firstSent, message.sent) ? message.firstSent : message.sent;
    const auto time = feed::ParseTime(sent);
    return EventId(*vtec, time ? feed::YearOf(*time) : 0);
}

int SeverityRank(const Message& message) {
    constexpr std::string_view kSeverities[] = {"Extreme", "Severe", "Moderate", "Minor"};
    constexpr std::string_view kUrgencies[] = {"Immediate", "Expected", "Future", "Unknown",
                                               "Past"};
    return Rank(kSeverities, message.severity) * 10 + Rank(kUrgencies, message.urgency);
}

}  // namespace nws
