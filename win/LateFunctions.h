#pragma once
#include <windows.h>
#include <commctrl.h>
#include <commdlg.h>
#include <mmsystem.h>
#include <objbase.h>
#include <oleauto.h>
#include <uxtheme.h>

#include "win/LateFunction.h"

// The functions of the system libraries that the programs load at the first call: each of these
// libraries costs start time and idle memory, and a usual start needs none. The programs are not
// linked with them, so a call without `win::late::` is an error of the linker.
namespace win::late {

// NOLINTBEGIN(bugprone-macro-parentheses): the argument is a name
#define LATE_FUNCTION(library, function)                           \
    inline constinit LateFunction<decltype(::function)> function { \
        library, #function                                         \
    }
// NOLINTEND(bugprone-macro-parentheses)

LATE_FUNCTION("comctl32.dll", ImageList_Create);
LATE_FUNCTION("comctl32.dll", ImageList_Destroy);
LATE_FUNCTION("comctl32.dll", ImageList_ReplaceIcon);
LATE_FUNCTION("comctl32.dll", InitCommonControlsEx);
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
LATE_FUNCTION("uxtheme.dll", EnableThemeDialogTexture);
LATE_FUNCTION("winmm.dll", sndPlaySoundA);

#undef LATE_FUNCTION

}  // namespace win::late
