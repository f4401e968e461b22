#pragma once
#include <windows.h>

#include <array>
#include <string>

namespace win {

// Measures texts as a control draws them.
class TextMeter {
  public:
    explicit TextMeter(HWND control);
    TextMeter(const TextMeter&) = delete;
    TextMeter& operator=(const TextMeter&) = delete;
    ~TextMeter();

    // In pixels.
    int Width(const std::string& text) const;

  private:
    int MeasureText(const std::string& text) const;

    HWND control_;
    HDC device_;
    HGDIOBJ previousFont_;
    std::array<INT, 128> asciiWidths_{};
};

}  // namespace win
