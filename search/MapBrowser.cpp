#include "search/MapBrowser.h"

#include <mshtmhst.h>
#include <oaidl.h>

#include <utility>

#include "win/Com.h"
#include "win/LateFunctions.h"

namespace search {

// The host's interface for ambient properties, as ATL declares it. The compiler's headers lack it.
// Only the members up to the last one used are declared, in the order of the table. Not in an
// unnamed namespace: the compiler would conclude that nothing implements the interface, and call
// null.
struct IAxWinAmbientDispatch : public IDispatch {
    virtual HRESULT STDMETHODCALLTYPE put_AllowWindowlessActivation(VARIANT_BOOL) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_AllowWindowlessActivation(VARIANT_BOOL*) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_BackColor(OLE_COLOR) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_BackColor(OLE_COLOR*) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_ForeColor(OLE_COLOR) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_ForeColor(OLE_COLOR*) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_LocaleID(LCID) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_LocaleID(LCID*) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_UserMode(VARIANT_BOOL) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_UserMode(VARIANT_BOOL*) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_DisplayAsDefault(VARIANT_BOOL) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_DisplayAsDefault(VARIANT_BOOL*) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Font(IDispatch*) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Font(IDispatch**) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_MessageReflect(VARIANT_BOOL) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_MessageReflect(VARIANT_BOOL*) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_ShowGrabHandles(VARIANT_BOOL*) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_ShowHatching(VARIANT_BOOL*) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_DocHostFlags(DWORD) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_DocHostFlags(DWORD*) = 0;

  protected:
    ~IAxWinAmbientDispatch() = default;
};

namespace {

constexpr wchar_t kControlClass[] = L"Shell.Explorer.2";
constexpr wchar_t kHostClass[] = L"AtlAxWin";
constexpr UINT kForwardMessage = 0x37F;  // the host window passes the message to its control
constexpr char kInnerHtml[] = "innerHTML";

constexpr char kReadyStateComplete[] = "4";

constexpr IID kAmbientDispatchId{
    0xB6EA2051, 0x048A, 0x11D1, {0x82, 0xB9, 0x00, 0xC0, 0x4F, 0xB9, 0x94, 0x2E}};

bool RegisterHostClass() {
    auto* const initialise = win::late::AtlAxWinInit.Find();
    return initialise && initialise();
}

win::Automation FindControl(HWND window) {
    auto* const getControl = win::late::AtlAxGetControl.Find();
    Microsoft::WRL::ComPtr<IUnknown> control;
    win::Automation browser;
    if (window && getControl && SUCCEEDED(getControl(window, &control)) && control)
        control.As(&browser);
    return browser;
}

// Lets the engine scale its pages like the dialog. Without it they stay small on a screen of high
// resolution; hosts that do not know the flag ignore it.
void EnablePageScaling(HWND window) {
    auto* const getHost = win::late::AtlAxGetHost.Find();
    Microsoft::WRL::ComPtr<IUnknown> host;
    if (!window || !getHost || FAILED(getHost(window, &host)) || !host) return;
    Microsoft::WRL::ComPtr<IUnknown> found;
    if (FAILED(host->QueryInterface(kAmbientDispatchId,
                                    reinterpret_cast<void**>(found.GetAddressOf()))))
        return;
    auto* ambient = static_cast<IAxWinAmbientDispatch*>(found.Get());
    DWORD flags = 0;
    if (SUCCEEDED(ambient->get_DocHostFlags(&flags)))
        ambient->put_DocHostFlags(flags | DOCHOSTUIFLAG_DPI_AWARE);
}

// Returns an element of the browser's page, or null.
win::Automation FindElement(const win::Automation& browser, std::string_view identifier) {
    const auto document = win::GetObjectProperty(browser, "Document");
    return win::GetItem(win::GetObjectProperty(document, "All"), identifier);
}

}  // namespace

KeyTarget FindKeyTarget(WPARAM key, bool isControlDown) {
    if (key == VK_ESCAPE) return KeyTarget::Dialog;
    if (isControlDown) return KeyTarget::None;
    // Space, Page Up, Page Down, End, Home and the arrows, including the numeric keypad's.
    if (key >= VK_SPACE && key <= VK_DOWN) return KeyTarget::Map;
    for (const int used : {VK_TAB, VK_RETURN, VK_ADD, VK_SUBTRACT, VK_OEM_PLUS, VK_OEM_MINUS})
        if (key == static_cast<WPARAM>(used)) return KeyTarget::Map;
    return KeyTarget::None;
}

bool MapBrowser::Create(HWND parent, int control) {
    win::EnsureCom();
    if (!RegisterHostClass()) return false;
    // The host window creates the control that its text names.
    window_ = CreateWindowExW(WS_EX_CLIENTEDGE, kHostClass, kControlClass,
                              WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_CLIPCHILDREN, 0, 0, 0, 0,
                              parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(control)),
                              GetModuleHandleW(nullptr), nullptr);
    browser_ = FindControl(window_);
    if (!browser_ && window_) DestroyWindow(std::exchange(window_, nullptr));
    EnablePageScaling(window_);
    // Script errors of the page show no message boxes.
    win::PutProperty(browser_, "Silent", win::Variant(true));
    // A file dropped on the map does not replace the page.
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

bool MapBrowser::IsLoading() const {
    const auto busy = win::GetProperty(browser_, "Busy");
    if (busy && busy->IsTrue()) return true;
    // A control without an engine never has a document and never gets ready.
    const auto state = win::GetProperty(browser_, "ReadyState");
    return HasDocument() && state && state->Text() != kReadyStateComplete;
}

bool MapBrowser::HasDocument() const {
    return static_cast<bool>(win::GetObjectProperty(browser_, "Document"));
}

bool MapBrowser::BodyContains(std::string_view text) const {
    const auto document = win::GetObjectProperty(browser_, "Document");
    const auto markup = win::GetProperty(win::GetObjectProperty(document, "body"), kInnerHtml);
    return markup && markup->Text().find(text) != std::string::npos;
}

std::optional<std::string> MapBrowser::ReadElement(std::string_view identifier) const {
    const auto markup = win::GetProperty(FindElement(browser_, identifier), kInnerHtml);
    if (!markup) return std::nullopt;
    return markup->Text();
}

void MapBrowser::WriteElement(std::string_view identifier, std::string_view markup) const {
    win::PutProperty(FindElement(browser_, identifier), kInnerHtml, win::Variant(markup));
}

bool MapBrowser::HandleKey(const MSG& message) const {
    // Keys with Alt have other messages, which the dialog handles.
    const bool isKey = message.message >= WM_KEYFIRST && message.message <= WM_DEADCHAR;
    if (!isKey || !window_ || !IsChild(window_, message.hwnd)) return false;
    // Character messages come only from keys that the map has received.
    if (message.message == WM_KEYDOWN || message.message == WM_KEYUP) {
        const KeyTarget target = FindKeyTarget(message.wParam, GetKeyState(VK_CONTROL) < 0);
        if (target != KeyTarget::Map) return target == KeyTarget::None;
    }
    if (SendMessageW(window_, kForwardMessage, 0, reinterpret_cast<LPARAM>(&message))) return true;
    // After the page's last link Tab moves on to the dialog. Other keys stay in the map.
    if (message.wParam == VK_TAB) return false;
    TranslateMessage(&message);
    DispatchMessageW(&message);
    return true;
}

}  // namespace search
