#pragma once
#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

#include "win/Automation.h"

namespace search {

// The embedded browser that shows the map page. Everything asked of it or of its page is taken for
// done when it fails: without a browser, or with a page that is not ready, nothing happens.
class MapBrowser {
  public:
    // Makes the browser control in a child window of `parent`; false when there is no such control.
    bool Create(HWND parent, int control);
    // Lets go of the browser; its window goes with the dialog.
    void Release();
    // The same, and takes its window away.
    void Remove();

    HWND Window() const { return window_; }
    void Navigate(const std::string& address);
    bool IsBusy() const;
    bool HasDocument() const;
    // Whether the page's body has the text somewhere.
    bool BodyHolds(std::string_view text) const;
    // What is inside the element of the page.
    std::optional<std::string> ReadElement(std::string_view identifier) const;
    void WriteElement(std::string_view identifier, std::string_view markup) const;
    // Gives the browser those keys pressed in its window that the map uses; true when nobody else
    // should get the message.
    bool TakeKey(const MSG& message) const;

  private:
    HWND window_ = nullptr;
    win::Automation browser_;
};

}  // namespace search
