#pragma once
#include <initializer_list>
#include <string>

#include "win/Handle.h"
#include "win/LateFunctions.h"

namespace win {

// The icon of an ".ico" file at the given size in pixels; empty for a file that holds none.
Icon LoadIconFile(const std::string& path, int pixels);

// An icon of the program's own resources at the given size in pixels.
Icon LoadIconResource(int identifier, int pixels);

struct ImageListTraits {
    using Type = HIMAGELIST;
    static Type Empty() { return nullptr; }
    static void Close(Type list) { late::ImageList_Destroy(list); }
};
using ImageList = UniqueHandle<ImageListTraits>;

// A list of icons of the program's own resources, in the given order, at the size of list icons.
ImageList LoadSmallIcons(std::initializer_list<int> identifiers);

// The size of notification icons and of list icons, in pixels.
int SmallIconSize();

}  // namespace win
