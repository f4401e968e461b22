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

HBITMAP LoadSharedBitmap(int identifier) {
    return static_cast<HBITMAP>(LoadResourceImage(identifier, IMAGE_BITMAP, 0, LR_SHARED));
}

SIZE BitmapSize(HBITMAP bitmap) {
    BITMAP info{};
    GetObjectW(bitmap, sizeof info, &info);
    return {info.bmWidth, info.bmHeight};
}

Bitmap ScaleBitmap(HBITMAP bitmap, SIZE size) {
    const HDC screen = GetDC(nullptr);
    const HDC from = CreateCompatibleDC(screen);
    const HDC to = CreateCompatibleDC(screen);
    Bitmap scaled(CreateCompatibleBitmap(screen, size.cx, size.cy));
    const HGDIOBJ fromBefore = SelectObject(from, bitmap);
    const HGDIOBJ toBefore = SelectObject(to, scaled.Get());
    const SIZE whole = BitmapSize(bitmap);
    SetStretchBltMode(to, HALFTONE);
    SetBrushOrgEx(to, 0, 0, nullptr);  // HALFTONE needs it
    StretchBlt(to, 0, 0, size.cx, size.cy, from, 0, 0, whole.cx, whole.cy, SRCCOPY);
    SelectObject(from, fromBefore);
    SelectObject(to, toBefore);
    DeleteDC(from);
    DeleteDC(to);
    ReleaseDC(nullptr, screen);
    return scaled;
}

ImageList LoadIconList(std::initializer_list<int> identifiers, int pixels) {
    ImageList list(late::ImageList_Create(pixels, pixels, ILC_COLOR32 | ILC_MASK,
                                          static_cast<int>(identifiers.size()), 0));
    for (const int identifier : identifiers) {
        const Icon icon = LoadIconResource(identifier, pixels);
        late::ImageList_ReplaceIcon(list.Get(), -1, icon.Get());
    }
    return list;
}

}  // namespace win
