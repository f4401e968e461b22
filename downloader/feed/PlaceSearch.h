#pragma once
#include <string_view>
#include <vector>

#include "downloader/feed/Gazetteer.h"

namespace feed {

// The places that a source covers.
enum class Scope { UnitedStates, Abroad, World };

// Finds the places whose name is, or begins with, the text: at most `limit`. Exact names come
// first, then nicknames and other names ("Wien" for Vienna), then longer names, and of each kind
// the place with the most inhabitants. A town is returned once per state, with one of its ZIP
// codes. Case, accents, spaces and punctuation are ignored. After commas or, when nothing else is
// found, after a space, there may be a state, region or country: the beginning of its name, or the
// code of a state or country ("Paris, TX", "London, Ontario, Canada"). "New York City" finds New
// York.
std::vector<Place> FindPlaces(const Gazetteer& gazetteer, std::string_view text, std::size_t limit,
                              Scope scope);

}  // namespace feed
