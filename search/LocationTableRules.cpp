#include "search/LocationTableRules.h"

namespace search {
namespace {

constexpr int kLastReadIndex = 50;

class TableWalk {
  public:
    // False when the walk is over.
    bool Take(const NodeRow& row) {
        if (row.empty()) return true;
        ++index_;
        if (static_cast<std::size_t>(index_) >= slots_.size()) slots_.emplace_back();
        if (index_ > kLastReadIndex) return false;
        for (const Attribute& attribute : row)
            if (!TakeAttribute(attribute)) return false;
        return true;
    }

    LocationTable Finish() && {
        const int used = index_ + 1;
        slots_.resize(static_cast<std::size_t>(used));
        return {std::move(slots_), failed_};
    }

  private:
    bool TakeAttribute(const Attribute& attribute) {
        const auto& [name, text] = attribute;
        if (name == "cityname") return Write(&Location::city, text);
        if (name == "citytype") {
            if (!Write(&Location::type, text)) return false;
            if (text == "1") --index_;
            return true;
        }
        if (text.empty()) return true;
        if (name == "statename" || name == "countryname") return Write(&Location::region, text);
        if (name == "zipcode" || name == "citycode") return Write(&Location::code, text);
        return true;
    }

    bool Write(std::string Location::*field, const std::string& text) {
        failed_ = index_ < 0;
        if (!failed_) slots_[static_cast<std::size_t>(index_)].*field = text;
        return !failed_;
    }

    std::vector<Location> slots_;
    int index_ = -1;
    bool failed_ = false;
};

}  // namespace

LocationTable ReadLocations(const std::vector<NodeRow>& rows) {
    TableWalk walk;
    for (const NodeRow& row : rows)
        if (!walk.Take(row)) break;
    return std::move(walk).Finish();
}

std::vector<std::string> ChooserRows(const std::vector<Location>& locations) {
    std::vector<std::string> rows;
    for (const Location& location : locations)
        if (location.type == "0") rows.push_back(location.city + ", " + location.region);
    return rows;
}

std::string SelectedLocation(const std::vector<Location>& locations, std::size_t row) {
    return row < locations.size() ? locations[row].type + locations[row].code : std::string();
}

}  // namespace search
