#pragma once
#include <windows.h>
#include <wrl/client.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "win/LateFunctions.h"

// COM: its texts and values, and calls of objects by the names of their members.
namespace win {

// Initialises COM for the program's one thread, at the first call.
void EnsureCom();

// Owns one BSTR.
class Bstr {
  public:
    Bstr() = default;
    explicit Bstr(std::string_view text);
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    ~Bstr() { late::SysFreeString(value_); }
    BSTR Get() const { return value_; }
    // For calls that return a text through a pointer; frees the text held before.
    BSTR* Receive();
    BSTR Release() { return std::exchange(value_, nullptr); }
    // Returns the text in UTF-8.
    std::string Text() const;

  private:
    BSTR value_ = nullptr;
};

using Automation = Microsoft::WRL::ComPtr<IDispatch>;

// Owns one argument or result of such a call.
class Variant {
  public:
    Variant() { late::VariantInit(&value_); }
    explicit Variant(std::string_view text);
    explicit Variant(bool truth);
    // Holds a reference of its own to the object.
    explicit Variant(IUnknown* object);
    explicit Variant(const char* text) = delete;  // would convert to bool
    Variant(Variant&& other) noexcept : value_(other.value_) { late::VariantInit(&other.value_); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    ~Variant() { late::VariantClear(&value_); }

    VARIANT* Get() { return &value_; }
    // Each converts the value; empty, false or null when it cannot be converted.
    std::string Text() const;
    bool IsTrue() const;
    Automation Object() const;

  private:
    VARIANT value_;
};

// Returns a property's value; nullopt when the object is null, lacks the property or fails.
std::optional<Variant> GetProperty(const Automation& object, const char* name);

// Returns a property that is an object; null on failure.
Automation GetObjectProperty(const Automation& object, const char* name);

// Returns the object that a collection holds under a key; null when there is none.
Automation GetItem(const Automation& collection, std::string_view key);

// Return false when the object is null, lacks the member or fails.
bool PutProperty(const Automation& object, const char* name, Variant value);
bool CallMethod(const Automation& object, const char* name, Variant argument);

}  // namespace win
