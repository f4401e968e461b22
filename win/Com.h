#pragma once
#include <string>
#include <string_view>

#include "win/LateFunctions.h"

namespace win {

// Initialises COM for the program's one thread, on the first call.
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
    BSTR* Receive();
    // The text in the process's code page.
    std::string Text() const;

  private:
    BSTR value_ = nullptr;
};

}  // namespace win
