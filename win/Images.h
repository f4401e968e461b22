#pragma once
#include <windows.h>

#include <string>

#include "win/Handle.h"

namespace win {

// The icon of an ".ico" file at the given size in pixels; empty for a file that holds none.
Icon LoadIconFile(const std::string& path, int pixels);

// An icon of the program's own resources at the given size in pixels.
Icon LoadIconResource(int identifier, int pixels);

// The size of notification icons and of list icons, in pixels.
int SmallIconSize();

}  // namespace win
