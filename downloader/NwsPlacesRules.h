#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The gazetteer: the ZIP codes of the United States with their places, as tools/make-places writes
// them into places.dat (its form stands there). Nothing is read in: look-ups search the file's
// bytes, and the texts found point into them.
namespace downloader {

struct Gazetteer {
    std::string_view states;
    std::string_view places;
    std::string_view codes;
    std::string_view texts;
};

// Coordinates are whole numbers of 1/10000 degree.
struct Place {
    std::string_view zipCode;  // five digits
    std::string_view name;
    std::string_view state;  // its name in full
    int latitude = 0;
    int longitude = 0;
};

// Nothing when the bytes are not a whole gazetteer. Damage within is not looked for; it gives wrong
// or empty places.
std::optional<Gazetteer> OpenGazetteer(std::string_view bytes);

// The place of a ZIP code, which may be a ZIP+4 code.
std::optional<Place> FindZipCode(const Gazetteer& gazetteer, std::string_view zipCode);

// The places of a name, whole names before those that begin with it, each once per state, with one
// of its ZIP codes. Case, accents and marks do not count. A state's code or the beginning of its
// name may stand behind a comma (or, where nothing is found else, a blank). At most `limit`.
std::vector<Place> FindPlaces(const Gazetteer& gazetteer, std::string_view text, std::size_t limit);

// A name as names are compared: lower case, without accents and marks, "Saint" as "st".
std::string FoldName(std::string_view name);

// A coordinate in degrees, without zeros at its end: "-74.006".
std::string DegreesText(int tenThousandths);

}  // namespace downloader
