#pragma once
#include <windows.h>
#include <wrl/client.h>

#include <optional>
#include <string>
#include <string_view>

#include "win/LateFunctions.h"

// Objects that are spoken to by the names of their members.
namespace win {

using Automation = Microsoft::WRL::ComPtr<IDispatch>;

// Owns one value of such a call.
class Variant {
  public:
    Variant() { late::VariantInit(&value_); }
    explicit Variant(std::string_view text);
    explicit Variant(bool truth);
    explicit Variant(const char* text) = delete;  // would be taken for a truth value
    Variant(Variant&& other) noexcept : value_(other.value_) { late::VariantInit(&other.value_); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    ~Variant() { late::VariantClear(&value_); }

    VARIANT* Get() { return &value_; }
    // The value as text, as a truth value, as an object; empty, false or null when it is none.
    std::string Text() const;
    bool IsTrue() const;
    Automation Object() const;

  private:
    VARIANT value_;
};

// A property's value; nothing when the object is null, lacks it or fails.
std::optional<Variant> GetProperty(const Automation& object, const char* name);

// A property that is an object; null when it is none.
Automation GetObjectProperty(const Automation& object, const char* name);

// The object that a collection holds under a key; null when there is none.
Automation GetItem(const Automation& collection, std::string_view key);

// False when the object is null, lacks the member or fails.
bool PutProperty(const Automation& object, const char* name, Variant value);
bool CallMethod(const Automation& object, const char* name, Variant argument);

}  // namespace win
