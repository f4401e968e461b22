#include "downloader/fpas/Alert.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "downloader/feed/XmlTree.h"
#include "downloader/fpas/AlertFields.h"
#include "downloader/http/TextHash.h"
#include "win/Text.h"

namespace fpas {
namespace {

using feed::XmlElement;

void AppendWord(std::string& words, std::string_view word) {
    words.append(words.empty() ? "" : " ").append(word);
}

// A text that was cut may end inside a character.
std::size_t StartOfLastCharacter(std::string_view text) {
    std::size_t start = text.size() - 1;
    while (start > 0 && (text[start] & 0xC0) == 0x80) --start;
    return start;
}

// Reads a document's elements, and checks that there are not too many blocks and that all texts are
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
    // Returns the text; only the beginning of a very long one.
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
            if (name == "eventCode") {
                AppendWord(info.eventCodes, valueName);
                AppendWord(info.eventCodes, value);
            }
            for (const Field<Info>& field : kParameters)
                if (name == "parameter" && field.name == valueName) info.*field.text = value;
        }
        if (info.language.empty()) info.language = "en-US";
        info.areaKey = http::HexDigits(areaHash);
        return info;
    }

    // Returns a hash of the shape. A short one is hashed whole; samples are enough to distinguish
    // long ones.
    static std::uint64_t HashOfShape(std::string_view shape) {
        constexpr std::size_t kLongestShort = 512;  // bytes
        constexpr std::size_t kSamples = 16;
        std::uint64_t sample = 0;
        if (shape.size() < sizeof sample) return http::HashOf(shape);
        const std::size_t last = shape.size() - sizeof sample;
        const std::size_t step = shape.size() <= kLongestShort ? sizeof sample : last / kSamples;
        std::uint64_t hash = shape.size();
        for (std::size_t at = 0; at < last + step; at += step) {
            std::memcpy(&sample, shape.data() + std::min(at, last), sizeof sample);
            hash = (hash ^ sample) * kOdd;
            hash ^= hash >> 32;
        }
        return hash;
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

}  // namespace fpas
