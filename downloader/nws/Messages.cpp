#include "downloader/nws/Messages.h"

#include <algorithm>

#include "downloader/feed/IsoTime.h"
#include "downloader/feed/Json.h"
#include "downloader/nws/GeometryReader.h"
#include "downloader/nws/Zones.h"

namespace nws {
namespace {

using feed::JsonItem;
using Kind = JsonItem::Kind;

constexpr std::string_view kFeature = "features[]";
constexpr std::string_view kProperties = "features[]/properties";
constexpr std::string_view kProperty = "features[]/properties/";
constexpr std::string_view kReference = "references[]";
constexpr std::string_view kCoordinates = "features[]/geometry/coordinates";

struct Field {
    std::string_view name;
    std::string_view Message::*text;
};
constexpr Field kFields[] = {
    {"id", &Message::identifier},           {"status", &Message::status},
    {"messageType", &Message::type},        {"event", &Message::event},
    {"headline", &Message::headline},       {"areaDesc", &Message::area},
    {"description", &Message::description}, {"instruction", &Message::instruction},
    {"severity", &Message::severity},       {"urgency", &Message::urgency},
    {"certainty", &Message::certainty},     {"response", &Message::response},
    {"senderName", &Message::senderName},   {"sent", &Message::sent},
    {"expires", &Message::expires},         {"ends", &Message::ends},
};

constexpr std::string_view kThreats[] = {
    "parameters/tornadoDetection[]", "parameters/tornadoDamageThreat[]",
    "parameters/thunderstormDamageThreat[]", "parameters/flashFloodDamageThreat[]"};

bool IsEarlier(std::string_view left, std::string_view right) {
    const auto time = feed::ParseTime(left);
    return time && time < feed::ParseTime(right).value_or(INT64_MAX);
}

// Collects the messages from the items of the document.
struct Collector {
    std::vector<Message> messages;
    GeometryReader geometry;
    std::string_view reference;  // the current reference: its identifier and when it was sent
    std::string_view referenceSent;
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
        message.replaced.push_back(reference);
        reference = referenceSent = {};
    }

    // A message may begin or continue one event and end another that it replaces.
    void AddVtec(Message& message, std::string_view text) {
        const auto rank = [](const Vtec& vtec) {
            return vtec.action == "NEW" ? 2 : EndsEvent(vtec) ? 0 : 1;
        };
        const auto vtec = ParseVtec(text);
        if (vtec && (!message.vtec || rank(*vtec) > rank(*message.vtec))) message.vtec = vtec;
    }

    // Messages older than those in the references: "sender,identifier,time", separated by spaces.
    void AddExpiredReferences(Message& message, std::string_view text) {
        while (!text.empty()) {
            const std::string_view entry = text.substr(0, text.find(' '));
            text.remove_prefix(std::min(entry.size() + 1, text.size()));
            const std::size_t first = entry.find(',');
            const std::size_t last = entry.rfind(',');
            if (first == last) continue;
            reference = entry.substr(first + 1, last - first - 1);
            referenceSent = entry.substr(last + 1);
            AddReference(message);
        }
    }

    // A zone is named by its identifier and by its address.
    void AddZone(Message& message, std::string_view text) {
        const std::string_view id = ZoneIdOf(text);
        if (!id.empty()) message.zones.emplace_back(id);
    }

    void ReadProperty(Message& message, std::string_view name, const JsonItem& item) {
        if (item.kind == Kind::EndObject && name == kReference) return AddReference(message);
        if (item.kind != Kind::Text) return;
        if (name == "references[]/identifier") reference = item.text;
        if (name == "references[]/sent") referenceSent = item.text;
        if (name == "parameters/VTEC[]") AddVtec(message, item.text);
        if (name == "parameters/expiredReferences[]") AddExpiredReferences(message, item.text);
        if (name == "geocode/UGC[]" || name == "affectedZones[]") AddZone(message, item.text);
        if (std::find(std::begin(kThreats), std::end(kThreats), name) != std::end(kThreats))
            message.threats.emplace_back(item.text);
        for (const Field& field : kFields)
            if (name == field.name) message.*field.text = item.text;
    }

    void Read(const JsonItem& item) {
        if (!item.path.starts_with(kFeature)) {
            if (item.path == "type") isCollection = item.text == "FeatureCollection";
            if (item.path == "features") hasList = item.kind == Kind::BeginArray;
        } else if (item.path.size() == kFeature.size()) {
            if (item.kind == Kind::BeginObject) {
                messages.emplace_back();
                geometry = {};
            } else if (item.kind != Kind::EndObject || !IsAlert()) {
                isValid = false;
            }
        } else if (messages.empty()) {
            isValid = false;
        } else {
            ReadPart(messages.back(), item);
        }
    }

    void ReadPart(Message& message, const JsonItem& item) {
        constexpr std::size_t kArrayMark = 2;  // "[]"
        if (item.path.starts_with(kProperty))
            ReadProperty(message, item.path.substr(kProperty.size()), item);
        else if (item.path == kProperties)
            message.hasProperties |= item.kind == Kind::BeginObject;
        else if (item.path.starts_with(kCoordinates))
            geometry.Read(item, (item.path.size() - kCoordinates.size()) / kArrayMark,
                          message.polygons);
    }
};

}  // namespace

std::optional<std::vector<Message>> ReadMessages(std::string& json) {
    Collector collector;
    const bool isWhole =
        feed::ReadJsonInPlace(json, [&](const JsonItem& item) { collector.Read(item); });
    if (!isWhole || !collector.isCollection || !collector.hasList || !collector.isValid)
        return std::nullopt;
    return std::move(collector.messages);
}

bool IsActual(const Message& message) {
    return (message.status == "Actual" || message.status.empty()) &&
           !(message.vtec && message.vtec->product == 'T');
}

bool IsEnd(const Message& message) {
    return message.type == "Cancel" || (message.vtec && EndsEvent(*message.vtec)) ||
           (message.response == "AllClear" && message.urgency == "Past");
}

bool IsInForce(const Message& message, std::int64_t now) {
    if (IsEnd(message)) return false;
    const auto end = feed::ParseTime(message.ends.empty() ? message.expires : message.ends);
    return !end || *end > now;
}

int FirstSentYear(const Message& message) {
    // The messages that a new event replaces belong to other events.
    const bool isNew = message.vtec && message.vtec->action == "NEW";
    const bool isFirstKnown = !isNew && IsEarlier(message.firstSent, message.sent);
    const auto time = feed::ParseTime(isFirstKnown ? message.firstSent : message.sent);
    return time ? feed::YearOf(*time) : 0;
}

}  // namespace nws
