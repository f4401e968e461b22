#include "downloader/feed/PlaceSearch.h"

#include <algorithm>
#include <tuple>

#include "downloader/feed/PlaceName.h"
#include "downloader/feed/PlaceRecords.h"
#include "downloader/http/TextHash.h"
#include "win/Text.h"

namespace feed {
namespace {

// How well a name matches.
enum class Match { Exact, OtherName, Beginning };

struct Candidate {
    Match match;
    std::uint32_t population;
    bool isCity;
    std::size_t index;  // in the towns or the cities
};

// The indexes of the places whose name begins with a text: [begin, exactEnd) have exactly that
// name.
struct Range {
    std::size_t begin;
    std::size_t exactEnd;
    std::size_t end;
};

// Finds the names that begin with the text in towns or cities, which are sorted by folded name.
Range FindRange(const Gazetteer& gazetteer, const Table& places, const std::string& folded) {
    const auto compareNames = [&](std::size_t index, std::size_t length) {
        const std::string name = FoldName(TextOf(gazetteer, places, index, PlaceRecord::kName));
        return name.compare(0, length, folded);
    };
    const std::size_t count = places.Count();
    Range range{};
    range.begin = PartitionPoint(
        0, count, [&](std::size_t index) { return compareNames(index, std::string::npos) < 0; });
    range.exactEnd = PartitionPoint(range.begin, count, [&](std::size_t index) {
        return compareNames(index, std::string::npos) <= 0;
    });
    range.end = PartitionPoint(range.exactEnd, count, [&](std::size_t index) {
        return compareNames(index, folded.size()) <= 0;
    });
    return range;
}

bool BeginsWith(std::string_view name, std::string_view folded) {
    return FoldName(name).starts_with(folded);
}

// Whether a code of two letters in a record is the folded text.
bool IsCode(const Table& table, std::size_t index, std::size_t offset, std::string_view folded) {
    const std::uint32_t code = table.Number(index, offset, 2);
    const char letters[] = {static_cast<char>(code), static_cast<char>(code >> 8)};
    return win::EqualIgnoringCase({letters, 2}, folded);
}

bool IsUnitedStates(std::string_view folded) {
    return std::string_view("usa").starts_with(folded) ||
           std::string_view("unitedstatesofamerica").starts_with(folded);
}

bool IsState(const Gazetteer& gazetteer, std::size_t state, std::string_view folded) {
    return IsCode(gazetteer.states, state, StateRecord::kCode, folded) ||
           BeginsWith(TextOf(gazetteer, gazetteer.states, state, StateRecord::kName), folded);
}

bool IsCountry(const Gazetteer& gazetteer, std::size_t country, std::string_view folded) {
    const Table& table = gazetteer.countries;
    return IsCode(table, country, CountryRecord::kCode, folded) ||
           BeginsWith(TextOf(gazetteer, table, country, CountryRecord::kName), folded) ||
           BeginsWith(TextOf(gazetteer, table, country, CountryRecord::kOtherName), folded);
}

// Decides whether the text after a name means a state or region, once for each of them.
class AreaFilter {
  public:
    // `wanted` are folded texts, which all have to match.
    AreaFilter(const Gazetteer& gazetteer, const std::vector<std::string>& wanted)
        : gazetteer_(gazetteer),
          wanted_(wanted),
          states_(gazetteer.states.Count()),
          regions_(gazetteer.regions.Count()) {}

    bool AllowsTown(std::size_t town) {
        const std::size_t state = gazetteer_.towns.Number(town, TownRecord::kState, 1);
        return Allows(states_, state, [&](std::string_view text) {
            return IsUnitedStates(text) || IsState(gazetteer_, state, text);
        });
    }

    bool AllowsCity(std::size_t city) {
        const std::size_t region =
            gazetteer_.cities.Number(city, CityRecord::kRegion, 2) & ~CityRecord::kIsRegionShown;
        return Allows(regions_, region, [&](std::string_view text) {
            const std::size_t country =
                gazetteer_.regions.Number(region, RegionRecord::kCountry, 1);
            return IsCountry(gazetteer_, country, text) ||
                   BeginsWith(TextOf(gazetteer_, gazetteer_.regions, region, RegionRecord::kName),
                              text);
        });
    }

  private:
    enum class Known : char { Unknown, Allowed, Refused };

    template <class Predicate>
    bool Allows(std::vector<Known>& areas, std::size_t area, Predicate isArea) {
        if (wanted_.empty()) return true;
        if (area >= areas.size()) return false;
        if (areas[area] == Known::Unknown)
            areas[area] = std::all_of(wanted_.begin(), wanted_.end(), isArea) ? Known::Allowed
                                                                              : Known::Refused;
        return areas[area] == Known::Allowed;
    }

    const Gazetteer& gazetteer_;
    const std::vector<std::string>& wanted_;
    std::vector<Known> states_;
    std::vector<Known> regions_;
};

// Collects the places of one search.
class Search {
  public:
    Search(const Gazetteer& gazetteer, Scope scope, const std::vector<std::string>& areas)
        : gazetteer_(gazetteer), scope_(scope), filter_(gazetteer, areas) {}

    // Adds the places whose name, nickname or other name is the folded text or begins with it.
    void Add(const std::string& folded) {
        if (folded.empty()) return;
        if (scope_ != Scope::Abroad) {
            const std::size_t first = candidates_.size();
            AddNicknamed(folded);
            AddRange(gazetteer_.towns, folded, false, first);
        }
        if (scope_ != Scope::UnitedStates) {
            const std::size_t first = candidates_.size();
            AddOtherNames(folded);
            AddRange(gazetteer_.cities, folded, true, first);
        }
    }

    // Returns the first places in their order.
    std::vector<Place> Best(std::size_t limit) {
        const auto rank = [](const Candidate& candidate) {
            return std::tuple(candidate.match, ~candidate.population, candidate.isCity,
                              candidate.index);
        };
        const auto end =
            candidates_.begin() + static_cast<std::ptrdiff_t>(std::min(limit, candidates_.size()));
        std::partial_sort(candidates_.begin(), end, candidates_.end(),
                          [&](const Candidate& left, const Candidate& right) {
                              return rank(left) < rank(right);
                          });
        std::vector<Place> places;
        for (auto at = candidates_.begin(); at != end; ++at)
            places.push_back(at->isCity ? CityAt(gazetteer_, at->index)
                                        : TownAt(gazetteer_, at->index));
        return places;
    }

  private:
    void AddNicknamed(std::string_view nickname) {
        const std::string folded(NicknamedCity(nickname));
        if (folded.empty()) return;
        const Range range = FindRange(gazetteer_, gazetteer_.towns, folded);
        for (std::size_t index = range.begin; index < range.exactEnd; ++index)
            AddPlace(Match::OtherName, false, index);
    }

    void AddOtherNames(std::string_view folded) {
        const Table& names = gazetteer_.otherNames;
        const auto hash = static_cast<std::uint32_t>(http::HashOf(folded));
        const auto hashAt = [&](std::size_t index) {
            return names.Number(index, OtherNameRecord::kHash, 4);
        };
        std::size_t index = PartitionPoint(
            0, names.Count(), [&](std::size_t middle) { return hashAt(middle) < hash; });
        for (; index < names.Count() && hashAt(index) == hash; ++index)
            AddPlace(Match::OtherName, true, names.Number(index, OtherNameRecord::kCity, 2));
    }

    // Adds the places by name, except the candidates from `first` on, which may be among them.
    void AddRange(const Table& places, const std::string& folded, bool isCity, std::size_t first) {
        std::vector<std::size_t> known;
        for (std::size_t at = first; at < candidates_.size(); ++at)
            known.push_back(candidates_[at].index);
        const Range range = FindRange(gazetteer_, places, folded);
        for (std::size_t index = range.begin; index < range.end; ++index)
            if (std::find(known.begin(), known.end(), index) == known.end())
                AddPlace(index < range.exactEnd ? Match::Exact : Match::Beginning, isCity, index);
    }

    void AddPlace(Match match, bool isCity, std::size_t index) {
        const Table& places = isCity ? gazetteer_.cities : gazetteer_.towns;
        if (isCity ? filter_.AllowsCity(index) : filter_.AllowsTown(index))
            candidates_.push_back(
                {match, places.Number(index, PlaceRecord::kPopulation, 2), isCity, index});
    }

    const Gazetteer& gazetteer_;
    Scope scope_;
    AreaFilter filter_;
    std::vector<Candidate> candidates_;
};

std::vector<Place> FindIn(const Gazetteer& gazetteer, std::string_view name,
                          const std::vector<std::string>& areas, std::size_t limit, Scope scope) {
    constexpr std::string_view kCity = "city";
    std::string folded = FoldName(name);
    std::vector<Place> found;
    for (bool isWhole = true; found.empty(); isWhole = false) {
        Search search(gazetteer, scope, areas);
        search.Add(folded);
        found = search.Best(limit);
        if (!isWhole || !folded.ends_with(kCity)) break;
        folded.resize(folded.size() - kCity.size());
    }
    return found;
}

}  // namespace

std::vector<Place> FindPlaces(const Gazetteer& gazetteer, std::string_view text, std::size_t limit,
                              Scope scope) {
    std::vector<Place> found;
    // A few names contain commas themselves.
    for (std::size_t comma = text.find(','); found.empty() && comma != std::string_view::npos;
         comma = text.find(',', comma + 1)) {
        std::vector<std::string> areas = win::Split(text.substr(comma + 1), ",");
        for (std::string& area : areas) area = FoldName(area);
        std::erase(areas, "");
        found = FindIn(gazetteer, text.substr(0, comma), areas, limit, scope);
    }
    if (found.empty()) found = FindIn(gazetteer, text, {}, limit, scope);
    text = win::Trim(text);
    for (std::size_t space = text.rfind(' '); found.empty() && space != std::string_view::npos;
         space = space == 0 ? std::string_view::npos : text.rfind(' ', space - 1))
        found =
            FindIn(gazetteer, text.substr(0, space), {FoldName(text.substr(space))}, limit, scope);
    return found;
}

}  // namespace feed
