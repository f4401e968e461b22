#include "downloader/feed/Gazetteer.h"

#include <cstdint>
#include <cstdlib>

#include "downloader/feed/PlaceName.h"
#include "win/Text.h"

namespace feed {
namespace {

constexpr std::string_view kMagic = "SVPLACE2";
constexpr std::size_t kHeader = 24;
constexpr std::size_t kStateSize = 8;   // code: 2, zeros: 2, name: 4
constexpr std::size_t kPlaceSize = 8;   // name: 4, state: 1, its ZIP code: 3
constexpr std::size_t kCodeSize = 17;   // ZIP code: 5, place: 3, coordinates: 4 each, reach: 1
constexpr double kReachUnits = 4;       // in a kilometre
constexpr std::size_t kCodeLength = 5;  // characters

// Reads the little-endian number of `size` bytes at `at`; bytes beyond the end count as 0.
std::uint32_t NumberAt(std::string_view bytes, std::size_t at, std::size_t size) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < size && at + i < bytes.size(); ++i)
        number |= std::uint32_t{static_cast<unsigned char>(bytes[at + i])} << (8 * i);
    return number;
}

std::string_view Record(std::string_view table, std::size_t index, std::size_t size) {
    return index < table.size() / size ? table.substr(index * size, size) : std::string_view();
}

// Returns the zero-terminated text at an offset.
std::string_view TextAt(const Gazetteer& gazetteer, std::size_t offset) {
    if (offset >= gazetteer.texts.size()) return {};
    const std::string_view rest = gazetteer.texts.substr(offset);
    return rest.substr(0, rest.find('\0'));
}

std::string_view NameOf(const Gazetteer& gazetteer, std::size_t place) {
    return TextAt(gazetteer, NumberAt(Record(gazetteer.places, place, kPlaceSize), 0, 4));
}

std::size_t StateOf(const Gazetteer& gazetteer, std::size_t place) {
    return NumberAt(Record(gazetteer.places, place, kPlaceSize), 4, 1);
}

std::string_view StateName(const Gazetteer& gazetteer, std::size_t state) {
    return TextAt(gazetteer, NumberAt(Record(gazetteer.states, state, kStateSize), 4, 4));
}

Place PlaceOf(const Gazetteer& gazetteer, std::size_t code) {
    const std::string_view record = Record(gazetteer.codes, code, kCodeSize);
    const std::size_t place = NumberAt(record, kCodeLength, 3);
    return {record.substr(0, kCodeLength),
            NameOf(gazetteer, place),
            StateName(gazetteer, StateOf(gazetteer, place)),
            static_cast<std::int32_t>(NumberAt(record, 8, 4)),
            static_cast<std::int32_t>(NumberAt(record, 12, 4)),
            NumberAt(record, 16, 1) / kReachUnits};
}

// Returns the first index for which `isBefore` is false, or `count` when there is none.
template <class Predicate>
std::size_t PartitionPoint(std::size_t count, Predicate isBefore) {
    std::size_t low = 0;
    while (low < count) {
        const std::size_t middle = low + (count - low) / 2;
        if (isBefore(middle)) {
            low = middle + 1;
        } else {
            count = middle;
        }
    }
    return low;
}

bool IsState(const Gazetteer& gazetteer, std::size_t state, std::string_view wanted) {
    const std::string_view code = Record(gazetteer.states, state, kStateSize).substr(0, 2);
    return win::EqualIgnoringCase(code, wanted) ||
           FoldName(StateName(gazetteer, state)).starts_with(wanted);
}

// Flags the states that a folded text matches; an empty text matches all.
std::vector<bool> FindStates(const Gazetteer& gazetteer, std::string_view folded) {
    std::vector<bool> found(gazetteer.states.size() / kStateSize);
    for (std::size_t state = 0; state < found.size(); ++state)
        found[state] = IsState(gazetteer, state, folded);
    return found;
}

std::vector<Place> FindFolded(const Gazetteer& gazetteer, const std::string& folded,
                              std::string_view state, std::size_t limit) {
    std::vector<Place> found;
    if (folded.empty()) return found;
    const std::vector<bool> states = FindStates(gazetteer, FoldName(state));
    const std::size_t count = gazetteer.places.size() / kPlaceSize;
    std::size_t place = PartitionPoint(
        count, [&](std::size_t index) { return FoldName(NameOf(gazetteer, index)) < folded; });
    // The order of names puts exact matches before longer names.
    for (; place < count && found.size() < limit; ++place) {
        if (!FoldName(NameOf(gazetteer, place)).starts_with(folded)) break;
        const std::size_t placeState = StateOf(gazetteer, place);
        if (placeState < states.size() && states[placeState])
            found.push_back(
                PlaceOf(gazetteer, NumberAt(Record(gazetteer.places, place, kPlaceSize), 5, 3)));
    }
    return found;
}

std::vector<Place> FindIn(const Gazetteer& gazetteer, std::string_view name, std::string_view state,
                          std::size_t limit) {
    const std::string folded = FoldName(name);
    std::vector<Place> found = FindFolded(gazetteer, folded, state, limit);
    if (found.empty()) found = FindFolded(gazetteer, OtherName(folded), state, limit);
    return found;
}

}  // namespace

std::optional<Gazetteer> OpenGazetteer(std::string_view bytes) {
    if (bytes.size() < kHeader || !bytes.starts_with(kMagic)) return std::nullopt;
    constexpr std::size_t kSizes[] = {kStateSize, kPlaceSize, kCodeSize, 1};
    std::string_view tables[4];
    std::size_t at = kHeader;
    for (std::size_t table = 0; table < 4; ++table) {
        const std::size_t count = NumberAt(bytes, kMagic.size() + table * 4, 4);
        if (count > (bytes.size() - at) / kSizes[table]) return std::nullopt;
        tables[table] = bytes.substr(at, count * kSizes[table]);
        at += tables[table].size();
    }
    if (at != bytes.size()) return std::nullopt;
    return Gazetteer{tables[0], tables[1], tables[2], tables[3]};
}

std::optional<Place> FindZipCode(const Gazetteer& gazetteer, std::string_view zipCode) {
    if (zipCode.size() > kCodeLength && zipCode[kCodeLength] == '-')
        zipCode = zipCode.substr(0, kCodeLength);
    const auto codeAt = [&](std::size_t index) {
        return Record(gazetteer.codes, index, kCodeSize).substr(0, kCodeLength);
    };
    const std::size_t count = gazetteer.codes.size() / kCodeSize;
    const std::size_t code =
        PartitionPoint(count, [&](std::size_t index) { return codeAt(index) < zipCode; });
    if (code == count || codeAt(code) != zipCode) return std::nullopt;
    return PlaceOf(gazetteer, code);
}

std::vector<Place> FindPlaces(const Gazetteer& gazetteer, std::string_view text,
                              std::size_t limit) {
    if (const std::size_t comma = text.find(','); comma != std::string_view::npos)
        return FindIn(gazetteer, text.substr(0, comma), text.substr(comma + 1), limit);
    std::vector<Place> found = FindIn(gazetteer, text, {}, limit);
    text = win::TrimSpaces(text);
    if (const std::size_t space = text.rfind(' '); found.empty() && space != std::string_view::npos)
        return FindIn(gazetteer, text.substr(0, space), text.substr(space + 1), limit);
    return found;
}

std::string FormatDegrees(int tenThousandths) {
    const long long size = std::llabs(tenThousandths);
    std::string fraction = win::Decimal(10000 + size % 10000).substr(1);
    fraction.resize(fraction.find_last_not_of('0') + 1);
    std::string text = (tenThousandths < 0 ? "-" : "") + win::Decimal(size / 10000);
    return fraction.empty() ? text : text + "." + fraction;
}

}  // namespace feed
