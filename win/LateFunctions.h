#pragma once
#include <windows.h>
#include <commctrl.h>
#include <commdlg.h>
#include <mmsystem.h>
#include <objbase.h>
#include <oleauto.h>
#include <uxtheme.h>

#include <exception>

// Functions of system libraries that are loaded at the first call: each library costs start time
// and idle memory, and an ordinary start needs none of them.
namespace win {

// A function of a system library that is looked up at its first call. `Function` is the function's
// type; the object is called like the function. A test finds all objects in the built programs and
// compares them with the functions of Windows 10, so no function is looked up in another way.
template <class Function>
class LateFunction {
  public:
    // Both texts must outlive the object.
    constexpr LateFunction(const wchar_t* library, const char* name)
        : library_(library), name_(name) {}

    // Returns the function, or null if it or its library is missing. The library stays loaded.
    Function* Find() {
        if (function_) return function_;
        // Without a path, the manifest chooses the library's version (comctl32).
        const HMODULE library = LoadLibraryExW(library_, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
        if (library)
            function_ = reinterpret_cast<Function*>(
                reinterpret_cast<void*>(GetProcAddress(library, name_)));
        return function_;
    }
    // The process ends if the function is missing, as it would for an ordinary import.
    operator Function*() {
        if (!Find()) std::terminate();
        return function_;
    }

  private:
    const wchar_t* library_;
    const char* name_;
    Function* function_ = nullptr;
};

// The programs are not linked with these libraries, so a call without `win::late::` is an error of
// the linker.
namespace late {

// NOLINTBEGIN(bugprone-macro-parentheses): the argument is a name
#define LATE_FUNCTION(library, function)                           \
    inline constinit LateFunction<decltype(::function)> function { \
        L##library, #function                                      \
    }
// NOLINTEND(bugprone-macro-parentheses)

LATE_FUNCTION("comctl32.dll", DefSubclassProc);
LATE_FUNCTION("comctl32.dll", ImageList_Create);
LATE_FUNCTION("comctl32.dll", ImageList_Destroy);
LATE_FUNCTION("comctl32.dll", ImageList_ReplaceIcon);
LATE_FUNCTION("comctl32.dll", InitCommonControlsEx);
LATE_FUNCTION("comctl32.dll", RemoveWindowSubclass);
LATE_FUNCTION("comctl32.dll", SetWindowSubclass);
LATE_FUNCTION("comdlg32.dll", GetOpenFileNameA);
LATE_FUNCTION("ole32.dll", CoCreateInstance);
LATE_FUNCTION("ole32.dll", CoInitializeEx);
LATE_FUNCTION("ole32.dll", CreateStreamOnHGlobal);
LATE_FUNCTION("oleaut32.dll", SysAllocStringLen);
LATE_FUNCTION("oleaut32.dll", SysFreeString);
LATE_FUNCTION("oleaut32.dll", SysStringLen);
LATE_FUNCTION("oleaut32.dll", VarDateFromStr);
LATE_FUNCTION("oleaut32.dll", VariantChangeType);
LATE_FUNCTION("oleaut32.dll", VariantClear);
LATE_FUNCTION("oleaut32.dll", VariantInit);
LATE_FUNCTION("oleaut32.dll", VariantTimeToSystemTime);
LATE_FUNCTION("user32.dll", SetDialogDpiChangeBehavior);  // some systems lack it
LATE_FUNCTION("uxtheme.dll", EnableThemeDialogTexture);
LATE_FUNCTION("winmm.dll", sndPlaySoundA);

#undef LATE_FUNCTION

// Functions that may be missing, and that the compiler's headers do not declare.
using AtlAxGet = HRESULT WINAPI(HWND, IUnknown**);
inline constinit LateFunction<BOOL WINAPI()> AtlAxWinInit{L"atl.dll", "AtlAxWinInit"};
inline constinit LateFunction<AtlAxGet> AtlAxGetControl{L"atl.dll", "AtlAxGetControl"};
inline constinit LateFunction<AtlAxGet> AtlAxGetHost{L"atl.dll", "AtlAxGetHost"};

}  // namespace late

}  // namespace win
