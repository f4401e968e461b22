#include "tray/modTrayIcon.h"

#include <gtest/gtest.h>

#include "tests/ScratchStore.h"
#include "tray/TrayWindow.h"
#include "tray/frmTray.h"
#include "win/Dpi.h"
#include "win/Images.h"

namespace tray {
namespace {

class TrayIconTest : public tests::ScratchStore {};

int WidthOf(const TrayImage& image) {
    ICONINFO info{};
    GetIconInfo(image.picture.Get(), &info);
    const int width = win::BitmapSize(info.hbmMask).cx;
    DeleteObject(info.hbmMask);
    DeleteObject(info.hbmColor);
    return width;
}

TEST_F(TrayIconTest, LoadsTheImagesAtTheSizeOfANewTaskbar) {
    ASSERT_TRUE(LoadTrayWindow());
    const int size = win::SmallIconSize(win::TaskbarDpi());
    TrayImages& images = Images();
    const std::string file = "Z:" ICON_FILE;
    UseIconFile(images.ImageIcon2, file);
    for (TrayImage* image : {&images.ImageIcon, &images.ImageIcon2})
        image->picture = win::LoadIconResource(kNormalIcon, 2 * size);
    SendMessageW(TrayWindow(), RegisterWindowMessageW(L"TaskbarCreated"), 0, 0);
    EXPECT_EQ(WidthOf(images.ImageIcon), size);
    EXPECT_EQ(WidthOf(images.ImageIcon2), size);
    EXPECT_EQ(images.ImageIcon2.path, file);
    RemoveTrayIcon();
    UseBuiltInPicture(images.ImageIcon2);
    DestroyWindow(TrayWindow());
}

}  // namespace
}  // namespace tray
