#include "win/LateFunctions.h"

#include <gtest/gtest.h>

#include "win/Text.h"

namespace win {
namespace {

// Each function is called once: a wrong name, library or calling convention ends the process.
TEST(LateFunctions, FindEachFunction) {
    INITCOMMONCONTROLSEX controls{sizeof controls, ICC_STANDARD_CLASSES};
    EXPECT_TRUE(late::InitCommonControlsEx(&controls));
    const HWND window =
        CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    EXPECT_FALSE(late::SetWindowSubclass(window, nullptr, 0, 0));
    EXPECT_FALSE(late::RemoveWindowSubclass(window, nullptr, 0));
    EXPECT_EQ(late::DefSubclassProc(nullptr, WM_NULL, 0, 0), 0);
    DestroyWindow(window);
    const HIMAGELIST images = late::ImageList_Create(16, 16, ILC_COLOR32, 1, 0);
    EXPECT_EQ(late::ImageList_ReplaceIcon(images, -1, LoadIconW(nullptr, IDI_APPLICATION)), 0);
    EXPECT_TRUE(late::ImageList_Destroy(images));
    EXPECT_TRUE(FAILED(late::EnableThemeDialogTexture(nullptr, ETDT_ENABLETAB)));

    OPENFILENAMEA wrongSize{};
    EXPECT_FALSE(late::GetOpenFileNameA(&wrongSize));
    EXPECT_TRUE(late::sndPlaySoundA(nullptr, 0));

    EXPECT_TRUE(SUCCEEDED(late::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
    IStream* stream = nullptr;
    ASSERT_EQ(late::CreateStreamOnHGlobal(nullptr, TRUE, &stream), S_OK);
    stream->Release();
    void* object = nullptr;
    EXPECT_EQ(
        late::CoCreateInstance(IID_IUnknown, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, &object),
        REGDB_E_CLASSNOTREG);

    VARIANT text;
    late::VariantInit(&text);
    V_VT(&text) = VT_BSTR;
    V_BSTR(&text) = late::SysAllocStringLen(L"1/2/2008", 8);
    EXPECT_EQ(late::SysStringLen(V_BSTR(&text)), 8u);
    DATE date = 0;
    EXPECT_EQ(late::VarDateFromStr(V_BSTR(&text), LOCALE_INVARIANT, 0, &date), S_OK);
    SYSTEMTIME time{};
    EXPECT_TRUE(late::VariantTimeToSystemTime(date, &time));
    EXPECT_EQ(time.wYear, 2008);
    VARIANT number;
    late::VariantInit(&number);
    EXPECT_TRUE(FAILED(late::VariantChangeType(&number, &text, 0, VT_UNKNOWN)));
    EXPECT_EQ(late::VariantClear(&text), S_OK);
    late::SysFreeString(late::SysAllocStringLen(L"", 0));
}

// Only a load that honours the program's manifest finds the version with visual styles.
TEST(LateFunctions, LoadTheCommonControlsOfTheManifest) {
    ASSERT_TRUE(late::ImageList_Create.Find());
    char path[MAX_PATH] = {};
    GetModuleFileNameA(GetModuleHandleA("comctl32.dll"), path, sizeof path);
    EXPECT_TRUE(AsciiLower(path).find(
                    "\\winsxs\\x86_microsoft.windows.common-controls_6595b64144ccf1df_6.0.") !=
                std::string::npos)
        << path;
}

}  // namespace
}  // namespace win
