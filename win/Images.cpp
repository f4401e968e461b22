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

int SmallIconSize() {
    return GetSystemMetrics(SM_CXSMICON);
}

}  // namespace win
