#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The gazetteer: the ZIP codes of the United States with their places. tools/make-places writes it
// to places.dat and describes the format. Look-ups search the file's bytes directly; the texts
// found point into them.
namespace feed {

struct Gazetteer {
    std::string_view states;
    std::string_view places;
    std::string_view codes;
    std::string_view texts;
};

// Coordinates are integers in units of 1/10000 degree.
struct Place {
    std::string_view zipCode;  // five digits
    std::string_view name;
    std::string_view state;  // full name
    int latitude = 0;
    int longitude = 0;
    double reach = 0;  // kilometres, 3 to 40: how far the ZIP code's area extends
};

// Opens a gazetteer. Returns nullopt when the bytes are not a complete one. Its contents are not
// validated: damage in them leads to wrong or empty places, never to a read outside the bytes.
std::optional<Gazetteer> OpenGazetteer(std::string_view bytes);

// Finds the place of a ZIP code, which may be a ZIP+4 code.
std::optional<Place> FindZipCode(const Gazetteer& gazetteer, std::string_view zipCode);

// Finds the places whose name is, or begins with, the text; exact matches come first, and of
// several places of one name the one with the most ZIP codes. Each place is returned once per
// state, with one of its ZIP codes. Case, accents, spaces and punctuation are ignored. A state's
// code or the beginning of its name may follow a comma or, when nothing else is found, a space.
// "New York City" and "NYC" find New York. Returns at most `limit` places.
std::vector<Place> FindPlaces(const Gazetteer& gazetteer, std::string_view text, std::size_t limit);

// Formats a coordinate in degrees without trailing zeros: "-74.006".
std::string FormatDegrees(int tenThousandths);

}  // namespace feed
