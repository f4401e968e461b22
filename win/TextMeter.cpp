#include "win/TextMeter.h"

#include "win/CodePage.h"

namespace win {

TextMeter::TextMeter(HWND control)
    : control_(control),
      device_(GetDC(control)),
      previousFont_(SelectObject(
          device_, reinterpret_cast<HGDIOBJ>(SendMessageA(control, WM_GETFONT, 0, 0)))) {
    GetCharWidth32W(device_, 0, asciiWidths_.size() - 1, asciiWidths_.data());
}

TextMeter::~TextMeter() {
    SelectObject(device_, previousFont_);
    ReleaseDC(control_, device_);
}

int TextMeter::Width(const std::string& text) const {
    // Adding up is much quicker than asking, and the same: the controls draw without kerning.
    int sum = 0;
    for (const char c : text) {
        if (static_cast<unsigned char>(c) >= asciiWidths_.size()) return MeasureText(text);
        sum += asciiWidths_[static_cast<unsigned char>(c)];
    }
    return sum;
}

int TextMeter::MeasureText(const std::string& text) const {
    SIZE size{};
    const std::wstring wide = ToWide(text);
    GetTextExtentPoint32W(device_, wide.c_str(), static_cast<int>(wide.size()), &size);
    return size.cx;
}

}  // namespace win
