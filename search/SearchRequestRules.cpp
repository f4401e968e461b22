#include "search/SearchRequestRules.h"

#include "win/Text.h"

namespace search {

std::string LocationQuery(std::string_view text) {
    return "&RequestType=501&SearchString=" + win::ReplaceAll(text, " ", "%20");
}

std::string StationQuery(const Place& place) {
    return (place.byZipCode ? "&requesttype=1&zipcode=" : "&requesttype=1&CityCode=") + place.code;
}

std::optional<bool> IsByZipCode(std::string_view type) {
    if (type == "0") return true;
    if (type == "1") return false;
    if (win::IsNumeric(type)) return win::LeadingNumber(type) != 0;
    if (win::EqualIgnoringCase(type, "True")) return true;
    if (win::EqualIgnoringCase(type, "False")) return false;
    return std::nullopt;
}

std::optional<Place> PlaceOf(std::string_view selectedLocation) {
    const std::string_view type = win::FirstChars(selectedLocation, 1);
    const auto byZipCode = IsByZipCode(type);
    if (!byZipCode) return std::nullopt;
    return Place{std::string(selectedLocation.substr(type.size())), *byZipCode};
}

}  // namespace search
