#include "search/LocationTable.h"

#include <string_view>
#include <utility>

#include "win/Text.h"

namespace search {
namespace {

constexpr int kLastReadIndex = 50;

class TableReader {
  public:
    // Returns false when reading must stop.
    bool Take(const win::XmlAttributes& element) {
        if (element.empty()) return true;
        ++index_;
        if (static_cast<std::size_t>(index_) >= slots_.size()) slots_.emplace_back();
        if (index_ > kLastReadIndex) return false;
        for (const win::XmlAttribute& attribute : element)
            if (!TakeAttribute(attribute)) return false;
        return true;
    }

    LocationTable Finish() && {
        const int used = index_ + 1;
        slots_.resize(static_cast<std::size_t>(used));
        return {std::move(slots_), failed_};
    }

  private:
    bool TakeAttribute(const win::XmlAttribute& attribute) {
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

std::optional<bool> IsZipCodeType(std::string_view type) {
    if (type == "0") return true;
    if (type == "1") return false;
    if (win::IsNumeric(type)) return win::LeadingNumber(type) != 0;
    if (win::EqualIgnoringCase(type, "True")) return true;
    if (win::EqualIgnoringCase(type, "False")) return false;
    return std::nullopt;
}

std::optional<Place> MakePlace(std::string_view type, std::string_view code) {
    const auto isZipCode = IsZipCodeType(type);
    if (!isZipCode) return std::nullopt;
    return Place{std::string(code), *isZipCode};
}

}  // namespace

LocationTable ReadLocations(const std::vector<win::XmlAttributes>& elements) {
    TableReader reader;
    for (const win::XmlAttributes& element : elements)
        if (!reader.Take(element)) break;
    return std::move(reader).Finish();
}

std::vector<std::string> MakeChooserRows(const std::vector<Location>& locations) {
    std::vector<std::string> rows;
    for (const Location& location : locations)
        if (location.type == "0") rows.push_back(location.city + ", " + location.region);
    return rows;
}

std::optional<Place> FindPlace(const Location& location) {
    return MakePlace(location.type, location.code);
}

std::optional<Place> FindChosenPlace(const std::vector<Location>& locations, std::size_t row) {
    if (row >= locations.size()) return std::nullopt;
    const std::string selectedLocation = locations[row].type + locations[row].code;
    const std::string_view type = win::FirstChars(selectedLocation, 1);
    return MakePlace(type, std::string_view(selectedLocation).substr(type.size()));
}

}  // namespace search
