#include "win/Com.h"

#include <utility>

#include "win/CodePage.h"

namespace win {

void EnsureCom() {
    static const HRESULT once = late::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    static_cast<void>(once);
}

Bstr::Bstr(std::string_view text) {
    const std::wstring wide = ToWide(text);
    value_ = late::SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
}

BSTR* Bstr::Receive() {
    late::SysFreeString(std::exchange(value_, nullptr));
    return &value_;
}

std::string Bstr::Text() const {
    return value_ ? FromWide({value_, late::SysStringLen(value_)}) : std::string();
}

}  // namespace win
