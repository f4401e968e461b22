#pragma once
#include <initializer_list>
#include <string>

#include "win/Handle.h"
#include "win/LateFunctions.h"

namespace win {

// The resource number of the program's own icon: the lowest, which the shell shows for the file.
inline constexpr int kProgramIcon = 1;

// Loads an ".ico" file at the given size in pixels; returns an empty handle if it holds no icon.
Icon LoadIconFile(const std::string& path, int pixels);

// Loads an icon of the program's resources at the given size in pixels.
Icon LoadIconResource(int identifier, int pixels);

// Load an icon at the given size, or a bitmap, of the program's resources. The system owns it and
// shares it between all its users.
HANDLE LoadSharedIcon(int identifier, int pixels);
HANDLE LoadSharedBitmap(int identifier);

struct ImageListTraits {
    using Type = HIMAGELIST;
    static Type Empty() { return nullptr; }
    static void Close(Type list) { late::ImageList_Destroy(list); }
};
using ImageList = UniqueHandle<ImageListTraits>;

// Loads icons of the program's resources into a list, in the given order, at SmallIconSize.
ImageList LoadSmallIcons(std::initializer_list<int> identifiers);

// Returns the size of notification icons and of list icons in pixels.
int SmallIconSize();

// Returns the size of the icons of dialogs in pixels.
int LargeIconSize();

}  // namespace win
