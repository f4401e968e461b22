#include "win/TextMeter.h"

namespace win {

TextMeter::TextMeter(HWND control)
    : control_(control),
      device_(GetDC(control)),
      previousFont_(SelectObject(
          device_, reinterpret_cast<HGDIOBJ>(SendMessageA(control, WM_GETFONT, 0, 0)))) {}

TextMeter::~TextMeter() {
    SelectObject(device_, previousFont_);
    ReleaseDC(control_, device_);
}

int TextMeter::Width(const std::string& text) const {
    SIZE size{};
    GetTextExtentPoint32A(device_, text.c_str(), static_cast<int>(text.size()), &size);
    return size.cx;
}

}  // namespace win
