#pragma once
#include <windows.h>
#include <utility>

namespace win {

// Owns one system handle. The traits define `Type`, `Empty()` and `Close(Type)`.
template <class Traits>
class UniqueHandle {
  public:
    using Type = typename Traits::Type;
    UniqueHandle() = default;
    explicit UniqueHandle(Type value) : value_(value) {}
    UniqueHandle(UniqueHandle&& other) noexcept : value_(other.Release()) {}
    UniqueHandle& operator=(UniqueHandle&& other) noexcept {
        Reset(other.Release());
        return *this;
    }
    UniqueHandle(const UniqueHandle&) = delete;
    UniqueHandle& operator=(const UniqueHandle&) = delete;
    ~UniqueHandle() { Reset(); }

    Type Get() const { return value_; }
    explicit operator bool() const { return value_ != Traits::Empty(); }
    Type Release() { return std::exchange(value_, Traits::Empty()); }
    void Reset(Type value = Traits::Empty()) {
        const Type old = std::exchange(value_, value);
        if (old != Traits::Empty()) Traits::Close(old);
    }
    // For calls that return a handle through a pointer; closes the handle held before.
    Type* Receive() {
        Reset();
        return &value_;
    }

  private:
    Type value_ = Traits::Empty();
};

struct KernelTraits {
    using Type = HANDLE;
    static Type Empty() { return nullptr; }
    static void Close(Type handle) { CloseHandle(handle); }
};
struct FileTraits {
    using Type = HANDLE;
    static Type Empty() { return INVALID_HANDLE_VALUE; }
    static void Close(Type handle) { CloseHandle(handle); }
};
struct FindTraits {
    using Type = HANDLE;
    static Type Empty() { return INVALID_HANDLE_VALUE; }
    static void Close(Type handle) { FindClose(handle); }
};
struct RegistryKeyTraits {
    using Type = HKEY;
    static Type Empty() { return nullptr; }
    static void Close(Type key) { RegCloseKey(key); }
};
struct IconTraits {
    using Type = HICON;
    static Type Empty() { return nullptr; }
    static void Close(Type icon) { DestroyIcon(icon); }
};
struct BitmapTraits {
    using Type = HBITMAP;
    static Type Empty() { return nullptr; }
    static void Close(Type bitmap) { DeleteObject(bitmap); }
};
struct FontTraits {
    using Type = HFONT;
    static Type Empty() { return nullptr; }
    static void Close(Type font) { DeleteObject(font); }
};
struct MenuTraits {
    using Type = HMENU;
    static Type Empty() { return nullptr; }
    static void Close(Type menu) { DestroyMenu(menu); }
};

using KernelHandle = UniqueHandle<KernelTraits>;
using FileHandle = UniqueHandle<FileTraits>;
using FindHandle = UniqueHandle<FindTraits>;
using RegistryKey = UniqueHandle<RegistryKeyTraits>;
using Icon = UniqueHandle<IconTraits>;
using Bitmap = UniqueHandle<BitmapTraits>;
using Font = UniqueHandle<FontTraits>;
using Menu = UniqueHandle<MenuTraits>;

}  // namespace win
