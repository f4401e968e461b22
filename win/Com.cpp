#include "win/Com.h"

#include <objbase.h>

#include <utility>

#include "win/Text.h"

namespace win {

void EnsureCom() {
    static const HRESULT once = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    static_cast<void>(once);
}

BasicString::BasicString(std::string_view text) {
    const std::wstring wide = ToWide(text);
    value_ = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
}

BSTR* BasicString::Receive() {
    SysFreeString(std::exchange(value_, nullptr));
    return &value_;
}

std::string BasicString::Text() const {
    return value_ ? FromWide({value_, SysStringLen(value_)}) : std::string();
}

}  // namespace win
