#pragma once
#include <windows.h>

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
    HWND control_;
    HDC device_;
    HGDIOBJ previousFont_;
};

}  // namespace win
