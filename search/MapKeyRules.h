#pragma once

// Which keys pressed in the map's browser it gets. A browser has keys that lead away from the page,
// load or print it or open windows: it gets those that the map has a use for, and no other.
namespace search {

enum class KeyTaker { Map, Dialog, Nobody };

// The one that takes the key of this virtual key number.
KeyTaker MapKeyTaker(unsigned key, bool withControl);

}  // namespace search
