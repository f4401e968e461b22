#pragma once
#include <windows.h>

#include "win/Handle.h"

namespace win {

// Shows the program's icon on a dialog, and fits the dialog to the resolution of its screen each
// time that it changes: the font, its controls and those of its pages, its size and its icon. The
// dialog procedure then receives WM_DPICHANGED, and can place and load what else depends on it. The
// dialog must have a button with the identifier IDOK.
class DialogScaling {
  public:
    // The object must exist until the dialog has been destroyed.
    explicit DialogScaling(HWND dialog);
    DialogScaling(const DialogScaling&) = delete;
    DialogScaling& operator=(const DialogScaling&) = delete;
    ~DialogScaling() = default;

  private:
    static LRESULT CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam,
                                      UINT_PTR identifier, DWORD_PTR object);
    void ShowIcon(UINT dpi);
    SIZE SizeFor(UINT dpi) const;
    void ScaleTo(UINT dpi, const RECT& window);

    HWND dialog_;
    Font font_;  // replaces that of the dialog's creation
    Icon bigIcon_;
    Icon smallIcon_;
};

// Returns the size of four horizontal and eight vertical dialog units in pixels, which depends on
// the present font of the dialog's controls.
SIZE MeasureDialogUnits(HWND dialog);

}  // namespace win
