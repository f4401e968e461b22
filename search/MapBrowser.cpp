#include "search/MapBrowser.h"

#include <utility>

#include "search/MapKeyRules.h"
#include "win/Com.h"

namespace search {
namespace {

constexpr char kControlClass[] = "Shell.Explorer.2";
constexpr char kHostClass[] = "AtlAxWin";
constexpr UINT kForwardMessage = 0x37F;  // the host window offers the message to its control

HMODULE HostLibrary() {
    static const HMODULE library = LoadLibraryExA("atl.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    return library;
}

template <class Function>
Function HostFunction(const char* name) {
    return reinterpret_cast<Function>(
        reinterpret_cast<void*>(HostLibrary() ? GetProcAddress(HostLibrary(), name) : nullptr));
}

bool RegisterHostClass() {
    const auto initialise = HostFunction<BOOL(WINAPI*)()>("AtlAxWinInit");
    return initialise && initialise();
}

win::Automation ControlIn(HWND window) {
    const auto getControl = HostFunction<HRESULT(WINAPI*)(HWND, IUnknown**)>("AtlAxGetControl");
    Microsoft::WRL::ComPtr<IUnknown> control;
    win::Automation browser;
    if (window && getControl && SUCCEEDED(getControl(window, &control)) && control)
        control.As(&browser);
    return browser;
}

constexpr char kInside[] = "innerHTML";

// The element of the browser's page; null when there is none.
win::Automation ElementOf(const win::Automation& browser, std::string_view identifier) {
    const auto document = win::GetObjectProperty(browser, "Document");
    return win::GetItem(win::GetObjectProperty(document, "All"), identifier);
}

}  // namespace

bool MapBrowser::Create(HWND parent, int control) {
    win::EnsureCom();
    if (!RegisterHostClass()) return false;
    // The host window makes the control that its text names.
    window_ = CreateWindowExA(WS_EX_CLIENTEDGE, kHostClass, kControlClass,
                              WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_CLIPCHILDREN, 0, 0, 0, 0,
                              parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(control)),
                              GetModuleHandleA(nullptr), nullptr);
    browser_ = ControlIn(window_);
    if (!browser_ && window_) DestroyWindow(std::exchange(window_, nullptr));
    // The page's faults are no boxes to click away.
    win::PutProperty(browser_, "Silent", win::Variant(true));
    // Nor does what is dropped on the map lead away from it.
    win::PutProperty(browser_, "RegisterAsDropTarget", win::Variant(false));
    return static_cast<bool>(browser_);
}

void MapBrowser::Release() {
    browser_.Reset();
    window_ = nullptr;
}

void MapBrowser::Remove() {
    const HWND window = window_;
    Release();
    if (window) DestroyWindow(window);
}

void MapBrowser::Navigate(const std::string& address) {
    win::CallMethod(browser_, "Navigate2", win::Variant(address));
}

bool MapBrowser::IsBusy() const {
    const auto busy = win::GetProperty(browser_, "Busy");
    return busy && busy->IsTrue();
}

bool MapBrowser::HasDocument() const {
    return static_cast<bool>(win::GetObjectProperty(browser_, "Document"));
}

bool MapBrowser::BodyHolds(std::string_view text) const {
    const auto document = win::GetObjectProperty(browser_, "Document");
    const auto inside = win::GetProperty(win::GetObjectProperty(document, "body"), kInside);
    return inside && inside->Text().find(text) != std::string::npos;
}

std::optional<std::string> MapBrowser::ReadElement(std::string_view identifier) const {
    const auto inside = win::GetProperty(ElementOf(browser_, identifier), kInside);
    if (!inside) return std::nullopt;
    return inside->Text();
}

void MapBrowser::WriteElement(std::string_view identifier, std::string_view markup) const {
    win::PutProperty(ElementOf(browser_, identifier), kInside, win::Variant(markup));
}

bool MapBrowser::TakeKey(const MSG& message) const {
    // Keys with Alt are no such messages: they stay the dialog's.
    const bool isKey = message.message >= WM_KEYFIRST && message.message <= WM_DEADCHAR;
    if (!isKey || !window_ || !IsChild(window_, message.hwnd)) return false;
    // A character is what became of a key that was the map's.
    if (message.message == WM_KEYDOWN || message.message == WM_KEYUP) {
        const KeyTaker taker = MapKeyTaker(message.wParam, GetKeyState(VK_CONTROL) < 0);
        if (taker != KeyTaker::Map) return taker == KeyTaker::Nobody;
    }
    if (SendMessageA(window_, kForwardMessage, 0, reinterpret_cast<LPARAM>(&message))) return true;
    // Behind the page's last link Tab leaves it. The rest stays, or the arrows would leave it too.
    if (message.wParam == VK_TAB) return false;
    TranslateMessage(&message);
    DispatchMessageW(&message);
    return true;
}

}  // namespace search
