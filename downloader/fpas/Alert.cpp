#include "downloader/fpas/Alert.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <type_traits>
#include <utility>

#include "downloader/feed/XmlTree.h"
#include "downloader/http/TextHash.h"
#include "win/Text.h"

namespace fpas {
namespace {

using feed::XmlElement;

constexpr std::string_view kPackHeader = "skyvane-cap-1;";

template <class Owner>
struct Field {
    std::string_view name;
    std::string Owner::*text;
};

constexpr Field<Alert> kAlertFields[] = {
    {"identifier", &Alert::identifier}, {"sender", &Alert::sender}, {"sent", &Alert::sent},
    {"status", &Alert::status},         {"msgType", &Alert::type},  {"scope", &Alert::scope},
    {"references", &Alert::references},
};

constexpr Field<Info> kInfoFields[] = {
    {"language", &Info::language},
    {"event", &Info::event},
    {"urgency", &Info::urgency},
    {"severity", &Info::severity},
    {"certainty", &Info::certainty},
    {"effective", &Info::effective},
    {"onset", &Info::onset},
    {"expires", &Info::expires},
    {"senderName", &Info::senderName},
    {"headline", &Info::headline},
    {"description", &Info::description},
    {"instruction", &Info::instruction},
};

// The elements that may be repeated, whose texts are joined.
constexpr Field<Info> kListFields[] = {
    {"category", &Info::categories},
    {"responseType", &Info::responses},
};

constexpr Field<Info> kParameters[] = {
    {"awareness_level", &Info::awarenessLevel},
    {"awareness_type", &Info::awarenessType},
};

// The texts that no single element holds.
constexpr Field<Info> kOtherFields[] = {
    {"eventCode", &Info::eventCodes},
    {"area", &Info::areaKey},
};

void AppendWord(std::string& words, std::string_view word) {
    words.append(words.empty() ? "" : " ").append(word);
}

// A text that was cut may end inside a character.
std::size_t StartOfLastCharacter(std::string_view text) {
    std::size_t start = text.size() - 1;
    while (start > 0 && (text[start] & 0xC0) == 0x80) --start;
    return start;
}

// Reads the elements of a document, and whether there are not too many blocks, and all texts are
// well-formed UTF-8.
class Reader {
  public:
    bool IsSound() const { return isSound_; }

    Alert ReadAlert(XmlElement root) {
        Alert alert;
        std::vector<XmlElement> blocks;
        for (XmlElement child = root.FirstChild(); child; child = child.Next()) {
            if (child.Name() == "info") blocks.push_back(child);
            ReadField(child, kAlertFields, alert);
            if (child.Name() == "references") alert.references = WholeText(child);
        }
        // There is one for each language, or a few.
        constexpr std::size_t kMostBlocks = 1000;
        isSound_ &= blocks.size() <= kMostBlocks;
        if (!isSound_) return alert;
        for (const XmlElement block : blocks) alert.infos.push_back(ReadInfo(block));
        for (std::size_t at = 0; at < blocks.size(); ++at) {
            const Info& info = alert.infos[at];
            const auto isElsewhere = [&](const Info& other) {
                return win::EqualIgnoringCase(other.language, info.language) &&
                       other.areaKey != info.areaKey;
            };
            if (std::any_of(alert.infos.begin(), alert.infos.end(), isElsewhere))
                ReadShapes(blocks[at], alert.infos[at]);
        }
        return alert;
    }

  private:
    // Returns the text; only the beginning of one that nobody would read to its
    // end.
    std::string Text(XmlElement element) {
        constexpr std::size_t kLongest = 32'768;
        constexpr std::size_t kLongestCharacter = 4;
        std::string text = element.Text(kLongest);
        if (text.size() + kLongestCharacter > kLongest)
            text.replace(StartOfLastCharacter(text), std::string::npos, "...");
        isSound_ &= win::IsUtf8(text);
        return text;
    }

    std::string WholeText(XmlElement element) {
        std::string text = element.Text();
        isSound_ &= win::IsUtf8(text);
        return text;
    }

    template <class Owner, std::size_t size>
    void ReadField(XmlElement element, const Field<Owner> (&fields)[size], Owner& owner) {
        for (const Field<Owner>& field : fields)
            if (field.name == element.Name()) owner.*field.text = Text(element);
    }

    // Returns the texts of a pair of elements: a name and a value.
    std::pair<std::string, std::string> ReadPair(XmlElement element) {
        std::pair<std::string, std::string> texts;
        for (XmlElement child = element.FirstChild(); child; child = child.Next()) {
            if (child.Name() == "valueName") texts.first = Text(child);
            if (child.Name() == "value") texts.second = Text(child);
        }
        return texts;
    }

    Info ReadInfo(XmlElement block) {
        Info info;
        std::uint64_t areaHash = 0;
        for (XmlElement child = block.FirstChild(); child; child = child.Next()) {
            const std::string_view name = child.Name();
            ReadField(child, kInfoFields, info);
            for (const Field<Info>& field : kListFields)
                if (field.name == name) AppendWord(info.*field.text, Text(child));
            if (name == "area") info.areas.push_back(ReadArea(child, areaHash));
            if (name != "eventCode" && name != "parameter") continue;
            const auto [valueName, value] = ReadPair(child);
            if (name == "eventCode") AppendWord(info.eventCodes, valueName + " " + value);
            for (const Field<Info>& field : kParameters)
                if (name == "parameter" && field.name == valueName) info.*field.text = value;
        }
        if (info.language.empty()) info.language = "en-US";
        info.areaKey = http::HexDigits(areaHash);
        return info;
    }

    // Returns a hash of the shape: its length and both ends are enough to tell it
    // from another.
    static std::uint64_t HashOfShape(std::string_view shape) {
        std::uint64_t words[4];
        constexpr std::size_t kEnd = sizeof words / 2;
        if (shape.size() < 2 * kEnd) return http::HashOf(shape);
        std::memcpy(words, shape.data(), kEnd);
        std::memcpy(words + 2, shape.data() + shape.size() - kEnd, kEnd);
        std::uint64_t hash = shape.size();
        for (const std::uint64_t word : words) hash = (hash ^ word) * kOdd;
        return hash ^ hash >> 32;
    }

    // The sum of the hashes does not depend on the order of geocodes and shapes.
    Area ReadArea(XmlElement element, std::uint64_t& hash) {
        Area area;
        for (XmlElement child = element.FirstChild(); child; child = child.Next()) {
            const std::string_view name = child.Name();
            if (name == "areaDesc") area.description = Text(child);
            if (name == "polygon" || name == "circle") hash += HashOfShape(child.FirstText());
            if (name != "geocode") continue;
            std::uint64_t pair = 0;
            for (XmlElement part = child.FirstChild(); part; part = part.Next())
                pair = pair * kOdd + http::HashOf(part.FirstText());
            hash += pair;
        }
        return area;
    }

    void ReadShapes(XmlElement block, Info& info) {
        auto area = info.areas.begin();
        for (XmlElement child = block.FirstChild(); child; child = child.Next()) {
            if (child.Name() != "area") continue;
            for (XmlElement shape = child.FirstChild(); shape; shape = shape.Next()) {
                if (shape.Name() == "polygon") area->polygons.push_back(WholeText(shape));
                if (shape.Name() == "circle") area->circles.push_back(WholeText(shape));
            }
            ++area;
        }
    }

    static constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15;

    bool isSound_ = true;
};

// Calls `act` for each text of the owner in the tables, in the order in which
// they are packed.
template <class Act, class Owner, std::size_t... sizes>
void ForEachText(const Act& act, Owner& owner,
                 const Field<std::remove_const_t<Owner>> (&... tables)[sizes]) {
    const auto visit = [&](const auto& table) {
        for (const auto& field : table) act(owner.*field.text);
    };
    (visit(tables), ...);
}

// A number is its digits and ";"; a text is its length as a number, then its
// bytes.
class Packer {
  public:
    explicit Packer(std::string& packed) : packed_(packed) {}
    void Pack(std::size_t number) {
        packed_.append(win::Decimal(static_cast<long long>(number))).append(";");
    }
    void Pack(const std::string& text) {
        Pack(text.size());
        packed_ += text;
    }
    void Pack(const std::vector<std::string>& texts) {
        Pack(texts.size());
        for (const std::string& text : texts) Pack(text);
    }

  private:
    std::string& packed_;
};

// Reads what Packer wrote. After damage every number is 0 and every text empty.
class Unpacker {
  public:
    explicit Unpacker(std::string_view rest) : rest_(rest) {}
    bool IsWhole() const { return isSound_ && rest_.empty(); }
    std::size_t Count() {
        std::size_t number = 0;
        const auto [end, error] =
            std::from_chars(rest_.data(), rest_.data() + rest_.size(), number);
        const auto length = static_cast<std::size_t>(end - rest_.data());
        Require(error == std::errc() && rest_.substr(length).starts_with(';') &&
                number < rest_.size() - length);
        if (isSound_) rest_.remove_prefix(length + 1);
        return isSound_ ? number : 0;
    }
    void Unpack(std::string& text) {
        const std::size_t length = Count();
        text = rest_.substr(0, length);
        rest_.remove_prefix(length);
        Require(win::IsUtf8(text));
    }
    void Unpack(std::vector<std::string>& texts) {
        UnpackEach(texts, [&](std::string& text) { Unpack(text); });
    }
    // The list grows item by item: a damaged count must not allocate memory.
    template <class Item, class Read>
    void UnpackEach(std::vector<Item>& items, const Read& read) {
        for (std::size_t left = Count(); left > 0 && isSound_; --left) read(items.emplace_back());
    }

  private:
    void Require(bool isSound) {
        if (isSound) return;
        isSound_ = false;
        rest_ = {};
    }

    std::string_view rest_;
    bool isSound_ = true;
};

}  // namespace

std::optional<Alert> ReadAlert(std::string document) {
    const feed::XmlTree tree(std::move(document));
    const XmlElement root = tree.Root();
    if (!root || root.Name() != "alert") return std::nullopt;
    Reader reader;
    Alert alert = reader.ReadAlert(root);
    if (!reader.IsSound()) return std::nullopt;
    return alert;
}

std::string PackAlert(const Alert& alert) {
    std::string packed(kPackHeader);
    Packer packer(packed);
    const auto pack = [&](const std::string& text) { packer.Pack(text); };
    ForEachText(pack, alert, kAlertFields);
    packer.Pack(alert.infos.size());
    for (const Info& info : alert.infos) {
        ForEachText(pack, info, kInfoFields, kListFields, kParameters, kOtherFields);
        packer.Pack(info.areas.size());
        for (const Area& area : info.areas) {
            packer.Pack(area.description);
            packer.Pack(area.polygons);
            packer.Pack(area.circles);
        }
    }
    return packed;
}

std::optional<Alert> UnpackAlert(std::string_view text) {
    if (!text.starts_with(kPackHeader)) return std::nullopt;
    Unpacker unpacker(text.substr(kPackHeader.size()));
    const auto unpack = [&](std::string& field) { unpacker.Unpack(field); };
    Alert alert;
    ForEachText(unpack, alert, kAlertFields);
    unpacker.UnpackEach(alert.infos, [&](Info& info) {
        ForEachText(unpack, info, kInfoFields, kListFields, kParameters, kOtherFields);
        unpacker.UnpackEach(info.areas, [&](Area& area) {
            unpacker.Unpack(area.description);
            unpacker.Unpack(area.polygons);
            unpacker.Unpack(area.circles);
        });
    });
    if (!unpacker.IsWhole()) return std::nullopt;
    return alert;
}

}  // namespace fpas
