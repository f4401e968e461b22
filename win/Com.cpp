#include "win/Com.h"

#include "win/CodePage.h"

namespace win {
namespace {

std::optional<DISPID> MemberOf(const Automation& object, const char* name) {
    if (!object) return std::nullopt;
    std::wstring wide = ToWide(name);
    LPOLESTR text = wide.data();
    DISPID member = 0;
    if (FAILED(object->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &member)))
        return std::nullopt;
    return member;
}

std::optional<Variant> Invoke(const Automation& object, std::optional<DISPID> member, WORD kind,
                              Variant* argument) {
    if (!object || !member) return std::nullopt;
    DISPID putMember = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{};
    if (argument) {
        parameters.rgvarg = argument->Get();
        parameters.cArgs = 1;
    }
    const bool isPut = kind == DISPATCH_PROPERTYPUT;
    if (isPut) {
        parameters.rgdispidNamedArgs = &putMember;
        parameters.cNamedArgs = 1;
    }
    std::optional<Variant> result(std::in_place);
    if (FAILED(object->Invoke(*member, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters,
                              isPut ? nullptr : result->Get(), nullptr, nullptr)))
        return std::nullopt;
    return result;
}

}  // namespace

void EnsureCom() {
    static const HRESULT once = late::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    static_cast<void>(once);
}

Bstr::Bstr(std::string_view text) {
    const std::wstring wide = ToWide(text);
    value_ = late::SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
}

BSTR* Bstr::Receive() {
    late::SysFreeString(Release());
    return &value_;
}

std::string Bstr::Text() const {
    return value_ ? FromWide({value_, late::SysStringLen(value_)}) : std::string();
}

Variant::Variant(std::string_view text) {
    late::VariantInit(&value_);
    V_VT(&value_) = VT_BSTR;
    V_BSTR(&value_) = Bstr(text).Release();
}

Variant::Variant(bool truth) {
    late::VariantInit(&value_);
    V_VT(&value_) = VT_BOOL;
    V_BOOL(&value_) = truth ? VARIANT_TRUE : VARIANT_FALSE;
}

Variant::Variant(IUnknown* object) {
    late::VariantInit(&value_);
    V_VT(&value_) = VT_UNKNOWN;
    V_UNKNOWN(&value_) = object;
    if (object) object->AddRef();
}

std::string Variant::Text() const {
    Variant text;
    if (FAILED(late::VariantChangeType(text.Get(), const_cast<VARIANT*>(&value_), 0, VT_BSTR)) ||
        !V_BSTR(text.Get()))
        return {};
    return FromWide({V_BSTR(text.Get()), late::SysStringLen(V_BSTR(text.Get()))});
}

bool Variant::IsTrue() const {
    Variant truth;
    return SUCCEEDED(
               late::VariantChangeType(truth.Get(), const_cast<VARIANT*>(&value_), 0, VT_BOOL)) &&
           V_BOOL(truth.Get()) != VARIANT_FALSE;
}

Automation Variant::Object() const {
    Variant object;
    if (FAILED(
            late::VariantChangeType(object.Get(), const_cast<VARIANT*>(&value_), 0, VT_DISPATCH)))
        return nullptr;
    return V_DISPATCH(object.Get());
}

std::optional<Variant> GetProperty(const Automation& object, const char* name) {
    return Invoke(object, MemberOf(object, name), DISPATCH_PROPERTYGET, nullptr);
}

Automation GetObjectProperty(const Automation& object, const char* name) {
    const auto value = GetProperty(object, name);
    return value ? value->Object() : nullptr;
}

Automation GetItem(const Automation& collection, std::string_view key) {
    Variant argument(key);
    const auto item =
        Invoke(collection, DISPID_VALUE, DISPATCH_PROPERTYGET | DISPATCH_METHOD, &argument);
    return item ? item->Object() : nullptr;
}

bool PutProperty(const Automation& object, const char* name, Variant value) {
    return Invoke(object, MemberOf(object, name), DISPATCH_PROPERTYPUT, &value).has_value();
}

bool CallMethod(const Automation& object, const char* name, Variant argument) {
    return Invoke(object, MemberOf(object, name), DISPATCH_METHOD, &argument).has_value();
}

}  // namespace win
