#include "win/Images.h"

namespace win {

Icon LoadIconFile(const std::string& path, int pixels) {
    return Icon(static_cast<HICON>(
        LoadImageA(nullptr, path.c_str(), IMAGE_ICON, pixels, pixels, LR_LOADFROMFILE)));
}

Icon LoadIconResource(int identifier, int pixels) {
    return Icon(
        static_cast<HICON>(LoadImageA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(identifier),
                                      IMAGE_ICON, pixels, pixels, LR_DEFAULTCOLOR)));
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

}  // namespace win
