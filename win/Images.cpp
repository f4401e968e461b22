#include "win/Images.h"

#include "win/CodePage.h"

namespace win {

static HANDLE LoadResourceImage(int identifier, UINT type, int pixels, UINT flags) {
    return LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(identifier), type, pixels, pixels,
                      flags);
}

Icon LoadIconFile(const std::string& path, int pixels) {
    return Icon(static_cast<HICON>(
        LoadImageW(nullptr, ToWide(path).c_str(), IMAGE_ICON, pixels, pixels, LR_LOADFROMFILE)));
}

Icon LoadIconResource(int identifier, int pixels) {
    return Icon(
        static_cast<HICON>(LoadResourceImage(identifier, IMAGE_ICON, pixels, LR_DEFAULTCOLOR)));
}

HANDLE LoadSharedIcon(int identifier, int pixels) {
    return LoadResourceImage(identifier, IMAGE_ICON, pixels, LR_SHARED);
}

HANDLE LoadSharedBitmap(int identifier) {
    return LoadResourceImage(identifier, IMAGE_BITMAP, 0, LR_SHARED);
}

ImageList LoadSmallIcons(std::initializer_list<int> identifiers) {
    const int size = SmallIconSize();
    ImageList list(late::ImageList_Create(size, size, ILC_COLOR32 | ILC_MASK,
                                          static_cast<int>(identifiers.size()), 0));
    for (const int identifier : identifiers) {
        const Icon icon = LoadIconResource(identifier, size);
        late::ImageList_ReplaceIcon(list.Get(), -1, icon.Get());
    }
    return list;
}

int SmallIconSize() {
    return GetSystemMetrics(SM_CXSMICON);
}

int LargeIconSize() {
    return GetSystemMetrics(SM_CXICON);
}

}  // namespace win
