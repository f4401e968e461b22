// A substitute for the platform's browser control, which the test machine lacks. It implements what
// the program uses of a browser and of its page, and keeps the page in the folder named by
// STANDIN_FOLDER, for the test to read and write:
//
//   navigated.txt      the addresses, one per line
//   busy               the control is busy while this file exists
//   loading            its page is not complete while this file exists
//   body.txt           the body's inner markup
//   NAME.element       the inner markup of the element NAME, if there is one
#include <windows.h>
#include <oleidl.h>

#include <string>

#include "win/Files.h"
#include "win/Process.h"
#include "win/CodePage.h"

namespace {

// {5B1C3C0A-8E0B-4B57-9E0B-6C6A54B0C7D1}
constexpr CLSID kClass{
    0x5B1C3C0A, 0x8E0B, 0x4B57, {0x9E, 0x0B, 0x6C, 0x6A, 0x54, 0xB0, 0xC7, 0xD1}};
enum Member : DISPID {
    kItem = DISPID_VALUE,
    kNavigate2 = 1,
    kBusy,
    kReadyState,
    kDocument,
    kAll,
    kBody,
    kInnerHtml
};
constexpr const wchar_t* kNames[] = {L"",         L"Navigate2", L"Busy", L"ReadyState",
                                     L"Document", L"All",       L"body", L"innerHTML"};

std::string PathOf(const std::wstring& name) {
    return win::Environment("STANDIN_FOLDER") + "\\" + win::FromWide(name);
}

bool Exists(const std::wstring& name) {
    return win::FileExists(PathOf(name));
}

std::wstring Read(const std::wstring& name) {
    return win::ToWide(win::ReadWholeFile(PathOf(name)).value_or(""));
}

void Write(const std::wstring& name, const std::wstring& text) {
    win::OverwriteFile(PathOf(name), win::FromWide(text));
}

// What an object represents; an element has the name of its file.
enum class Kind { Browser, Document, Collection, Element };

class Object : public IDispatch {
  public:
    Object(Kind kind, std::wstring file) : kind_(kind), file_(std::move(file)) {}
    virtual ~Object() = default;

    STDMETHODIMP QueryInterface(REFIID wanted, void** result) override {
        *result = wanted == IID_IUnknown || wanted == IID_IDispatch ? this : nullptr;
        if (!*result) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }
    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* member) override {
        for (DISPID i = kNavigate2; i <= kInnerHtml; ++i)
            if (lstrcmpiW(names[0], kNames[i]) == 0) {
                *member = i;
                return S_OK;
            }
        return DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD kind, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO*, UINT*) override {
        const bool hasText = parameters->cArgs == 1 && V_VT(&parameters->rgvarg[0]) == VT_BSTR;
        const std::wstring text = hasText ? V_BSTR(&parameters->rgvarg[0]) : L"";
        if (kind_ == Kind::Browser && member == kNavigate2 && hasText) {
            Write(L"navigated.txt", Read(L"navigated.txt") + text + L"\n");
            return S_OK;
        }
        if (kind_ == Kind::Browser && member == kBusy) {
            V_VT(result) = VT_BOOL;
            V_BOOL(result) = Exists(L"busy") ? VARIANT_TRUE : VARIANT_FALSE;
            return S_OK;
        }
        if (kind_ == Kind::Browser && member == kReadyState) {
            V_VT(result) = VT_I4;
            V_I4(result) = Exists(L"loading") ? 3 : 4;
            return S_OK;
        }
        if (kind_ == Kind::Browser && member == kDocument)
            return Give(result, new Object(Kind::Document, L""));
        // Like the platform's, the collection itself takes the key.
        if (kind_ == Kind::Document && member == kAll)
            return parameters->cArgs ? DISP_E_BADPARAMCOUNT
                                     : Give(result, new Object(Kind::Collection, L""));
        if (kind_ == Kind::Document && member == kBody)
            return Give(result, new Object(Kind::Element, L"body.txt"));
        if (kind_ == Kind::Collection && member == kItem && hasText)
            return Give(result, Exists(text + L".element")
                                    ? new Object(Kind::Element, text + L".element")
                                    : nullptr);
        if (kind_ == Kind::Element && member == kInnerHtml && kind == DISPATCH_PROPERTYPUT) {
            Write(file_, text);
            return S_OK;
        }
        if (kind_ == Kind::Element && member == kInnerHtml) {
            V_VT(result) = VT_BSTR;
            V_BSTR(result) = SysAllocString(Read(file_).c_str());
            return S_OK;
        }
        return DISP_E_MEMBERNOTFOUND;
    }

  private:
    static HRESULT Give(VARIANT* result, IDispatch* object) {
        V_VT(result) = VT_DISPATCH;
        V_DISPATCH(result) = object;
        return S_OK;
    }

    Kind kind_;
    std::wstring file_;
    ULONG references_ = 1;
};

// The control itself: an embeddable object that shows nothing.
class Browser final : public Object, public IOleObject {
  public:
    Browser() : Object(Kind::Browser, L"") {}

    STDMETHODIMP QueryInterface(REFIID wanted, void** result) override {
        if (wanted != IID_IOleObject) return Object::QueryInterface(wanted, result);
        *result = static_cast<IOleObject*>(this);
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return Object::AddRef(); }
    STDMETHODIMP_(ULONG) Release() override { return Object::Release(); }

    // The host lives as long as its control keeps the site.
    STDMETHODIMP SetClientSite(IOleClientSite* site) override {
        if (site) site->AddRef();
        if (site_) site_->Release();
        site_ = site;
        return S_OK;
    }
    STDMETHODIMP GetClientSite(IOleClientSite**) override { return E_NOTIMPL; }
    STDMETHODIMP SetHostNames(LPCOLESTR, LPCOLESTR) override { return S_OK; }
    STDMETHODIMP Close(DWORD) override { return S_OK; }
    STDMETHODIMP SetMoniker(DWORD, IMoniker*) override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    STDMETHODIMP InitFromData(IDataObject*, BOOL, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP GetClipboardData(DWORD, IDataObject**) override { return E_NOTIMPL; }
    STDMETHODIMP DoVerb(LONG, LPMSG, IOleClientSite*, LONG, HWND, LPCRECT) override { return S_OK; }
    STDMETHODIMP EnumVerbs(IEnumOLEVERB**) override { return E_NOTIMPL; }
    STDMETHODIMP Update() override { return S_OK; }
    STDMETHODIMP IsUpToDate() override { return S_OK; }
    STDMETHODIMP GetUserClassID(CLSID* result) override {
        *result = kClass;
        return S_OK;
    }
    STDMETHODIMP GetUserType(DWORD, LPOLESTR*) override { return E_NOTIMPL; }
    STDMETHODIMP SetExtent(DWORD, SIZEL*) override { return S_OK; }
    STDMETHODIMP GetExtent(DWORD, SIZEL*) override { return E_NOTIMPL; }
    STDMETHODIMP Advise(IAdviseSink*, DWORD*) override { return E_NOTIMPL; }
    STDMETHODIMP Unadvise(DWORD) override { return S_OK; }
    STDMETHODIMP EnumAdvise(IEnumSTATDATA**) override { return E_NOTIMPL; }
    STDMETHODIMP GetMiscStatus(DWORD, DWORD* status) override {
        *status = 0;
        return S_OK;
    }
    STDMETHODIMP SetColorScheme(LOGPALETTE*) override { return S_OK; }

  private:
    IOleClientSite* site_ = nullptr;
};

class Factory final : public IClassFactory {
  public:
    STDMETHODIMP QueryInterface(REFIID wanted, void** result) override {
        *result = wanted == IID_IUnknown || wanted == IID_IClassFactory ? this : nullptr;
        return *result ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP CreateInstance(IUnknown*, REFIID wanted, void** result) override {
        auto* browser = new Browser;
        const HRESULT answer = browser->QueryInterface(wanted, result);
        browser->Release();
        return answer;
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }
};

}  // namespace

STDAPI DllGetClassObject(REFCLSID wantedClass, REFIID wanted, void** result) {
    static Factory factory;
    return wantedClass == kClass ? factory.QueryInterface(wanted, result)
                                 : CLASS_E_CLASSNOTAVAILABLE;
}
