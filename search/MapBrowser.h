#pragma once
#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

#include "win/Com.h"

namespace search {

// Where a key pressed in the map's browser goes. Browsers have keys that leave the page, reload or
// print it, or open windows, so the browser gets only the keys that the map uses.
enum class KeyTarget { Map, Dialog, None };

// Returns the target of a virtual key.
KeyTarget FindKeyTarget(WPARAM key, bool isControlDown);

// The embedded browser that shows the map page. Failures are ignored: without a browser, or with a
// page that is not ready, calls have no effect.
class MapBrowser {
  public:
    // Creates the browser control in a child window of `parent`. Returns false when the system has
    // no such control.
    bool Create(HWND parent, int control);
    // Releases the browser; the dialog destroys its window.
    void Release();
    // Releases the browser and destroys its window.
    void Remove();

    // The browser's window, or null.
    HWND Window() const { return window_; }
    void Navigate(const std::string& address);
    // Returns whether the browser still loads a page.
    bool IsLoading() const;
    bool HasDocument() const;
    // Returns whether the markup of the page's body contains the text.
    bool BodyContains(std::string_view text) const;
    // Returns the inner markup of an element of the page, or nullopt when there is none.
    std::optional<std::string> ReadElement(std::string_view identifier) const;
    void WriteElement(std::string_view identifier, std::string_view markup) const;
    // Passes a key message of the browser's window to the browser if the map uses the key. Returns
    // whether the message is handled.
    bool HandleKey(const MSG& message) const;

  private:
    HWND window_ = nullptr;
    win::Automation browser_;
};

}  // namespace search
